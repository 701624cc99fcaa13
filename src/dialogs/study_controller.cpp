#include "dialogs/study_controller.h"

#include "dialogs/study_model.h"
#include "dialogs/study_table.h"
#include "modules/idbproject.h"

#include <array>
#include <unordered_set>

StudyController::StudyController(IDBProject* project)
    : DBProjectController(project)
    , project_(project)
    , rows_(std::make_unique<Rows>())
{
}

StudyController::~StudyController() = default;

using Names = std::unordered_set<std::wstring>;

static const std::wstring& pointNameOf(const std::wstring& key)
{
    return key;
}

template <class Key>
static const std::wstring& pointNameOf(const Key& key)
{
    return key.pointName;
}

// Every name once, so that ten thousand points do not walk ten thousand layers each.
template <class Register>
static Names namesIn(const Register& rows)
{
    Names names;
    for (const auto& entry : rows)
        names.insert(pointNameOf(entry.first));
    return names;
}

void StudyController::rebuildRows()
{
    rows_->clear();
    const std::array<Names, columnCount - 1> studied{
        namesIn(project_->getLithology()),
        namesIn(project_->getSamples()),
        namesIn(project_->getWaterLevels()),
        namesIn(project_->getConsistency()),
        namesIn(project_->getSoundings()),
        namesIn(project_->getSubsidence()),
        namesIn(project_->getChemistry()),
    };
    for (const auto& entry : project_->getPointRegister()) {
        Row row{entry.first.pointName};
        for (const Names& names : studied)
            row.emplace_back(names.contains(entry.first.pointName) ? mark : L"");
        rows_->push_back(std::move(row));
    }
}

void StudyController::refresh()
{
    Q_EMIT model_->dataChanged(table_->currentIndex(), table_->currentIndex());
    Q_EMIT model_->layoutChanged();
}
