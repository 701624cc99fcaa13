#include "dialogs/study_dialog.h"

#include "dialogs/study_controller.h"
#include "dialogs/study_model.h"
#include "dialogs/study_table.h"

#include <QVBoxLayout>

StudyDialog::StudyDialog(IDBProject* project, QWidget* parent)
    : QDialog(parent)
    , controller_(std::make_unique<StudyController>(project))
{
    setWindowFlag(Qt::Dialog);
    setWindowTitle(QStringLiteral("Исследования для комплексных точек"));
    resize(1250, 700);
    setModal(true);
    auto* model = new StudyModel(controller_.get(), this);
    table_ = new StudyTable(controller_.get(), model, this);
    controller_->setModel(model);
    controller_->setTable(table_);
    controller_->rebuildRows();
    // The table was made over no rows.
    controller_->refresh();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table_);
}

StudyDialog::~StudyDialog()
{
    // The rows go with the controller; the table, a child widget, goes later.
    table_->setModel(nullptr);
}
