#include "dialogs/stamp_dialog.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace
{

// A caption of the title blocks in both languages.
struct Caption {
    const wchar_t* russian;
    const wchar_t* ukrainian;
};

// clang-format off
constexpr Caption changeCaption         {L"Изм.",           L"Зм."};
constexpr Caption countCaption          {L"Кол.",           L"Кільк."};
constexpr Caption revisionSheetCaption  {L"Лист",           L"Арк."};
constexpr Caption documentNumberCaption {L"№док.",          L"№док."};
constexpr Caption signatureCaption      {L"Подп.",          L"Підп."};
constexpr Caption dateCaption           {L"Дата",           L"Дата"};
constexpr Caption developedCaption      {L"Разработал",     L"Авт.розд."};
constexpr Caption executedCaption       {L"Выполнил",       L"Виконав"};
constexpr Caption verifiedCaption       {L"Проверил",       L"Перевірив"};
constexpr Caption stageCaption          {L"Стадия",         L"Стадія"};
constexpr Caption sheetCaption          {L"Лист",           L"Аркуш"};
constexpr Caption sheetsCaption         {L"Листов",         L"Аркушів"};
constexpr Caption agreedCaption         {L"СОГЛАСОВАНО",    L"ПОГОДЖЕНО"};
constexpr Caption inventoryCaption      {L"Инв. № под.",    L"Інв. № ор."};
constexpr Caption signatureDateCaption  {L"Подпись и дата", L"Підпис і дата"};
constexpr Caption replacesCaption       {L"Взам. ин. №",    L"Зам. інв. №"};
// clang-format on

// The columns of the table of changes, and their widths.
struct ChangeColumn {
    const Caption& caption;
    int width;
};

constexpr ChangeColumn changeColumns[] = {
    {changeCaption, 50},
    {countCaption, 50},
    {revisionSheetCaption, 50},
    {documentNumberCaption, 50},
    {signatureCaption, 80},
    {dateCaption, 50},
};

constexpr int lineHeight = 20;
constexpr int blockHeight = 60;

// Puts the three title blocks together from cells of fixed size.
class StampBuilder
{
public:
    explicit StampBuilder(const QDialog& dialog, bool ukrainian)
        : captionColor_(dialog.palette().color(QPalette::Window))
        , ukrainian_(ukrainian)
    {
    }

    QLayout* mainStamp() const
    {
        auto* stamp = bare<QVBoxLayout>();
        stamp->addLayout(mainUpperRow());
        stamp->addLayout(mainLowerRow());
        return stamp;
    }

    QLayout* narrowStamp() const
    {
        QHBoxLayout* stamp = changeTable(false);
        QLineEdit* title = cell(false, {}, 340, blockHeight);
        title->setFixedWidth(340);
        stamp->addWidget(title, 0, Qt::AlignTop);
        auto* sheet = bare<QVBoxLayout>();
        sheet->addWidget(cell(false, {}, blockHeight, blockHeight));
        sheet->addWidget(cell(false, text(sheetCaption), blockHeight, 2 * blockHeight));
        stamp->addLayout(sheet);
        stamp->addStretch();
        return stamp;
    }

    QLayout* sideStamp() const
    {
        auto* stamp = bare<QHBoxLayout>();
        const Caption* const captions[] = {&inventoryCaption, &signatureDateCaption, &replacesCaption};
        const int widths[] = {80, 100, 80};
        for (std::size_t i = 0; i < std::size(captions); ++i)
            stamp->addLayout(column(true, 1, captions[i], widths[i], blockHeight));
        auto* agreed = bare<QVBoxLayout>();
        agreed->addWidget(cell(false, text(agreedCaption), 290, blockHeight));
        for (int row = 0; row < 2; ++row) {
            auto* cells = bare<QHBoxLayout>();
            for (const int width : {80, 80, 80, 50})
                cells->addWidget(cell(true, {}, width, blockHeight));
            agreed->addLayout(cells);
        }
        stamp->addLayout(agreed);
        stamp->addStretch();
        return stamp;
    }

private:
    template <class Layout>
    static Layout* bare()
    {
        auto* layout = new Layout;
        layout->setSpacing(0);
        layout->setContentsMargins(0, 0, 0, 0);
        return layout;
    }

    QString text(const Caption& caption) const
    {
        return QString::fromWCharArray(ukrainian_ ? caption.ukrainian : caption.russian);
    }

    // A cell with a text is a printed label; an empty one can be typed into where it is editable.
    QLineEdit* cell(bool editable, const QString& content, int width, int height) const
    {
        auto* made = new QLineEdit(content);
        made->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        made->setAlignment(Qt::AlignCenter);
        made->setMaximumSize(width, height);
        made->setMinimumSize(width, height);
        if (!content.isEmpty() || !editable) {
            made->setReadOnly(true);
            made->setAttribute(Qt::WA_TransparentForMouseEvents);
            made->setFocusPolicy(Qt::NoFocus);
        }
        if (!content.isEmpty()) {
            fitFont(*made, width);
            QPalette palette = made->palette();
            palette.setColor(QPalette::Base, captionColor_);
            made->setPalette(palette);
        }
        return made;
    }

    // Captions of a printed title block are narrow: one that is wider than its cell is set smaller.
    static void fitFont(QLineEdit& caption, int width)
    {
        static constexpr int frame = 10; // pixels that border and margins take
        static constexpr int smallest = 6; // points
        QFont font = caption.font();
        while (font.pointSize() > smallest
            && QFontMetrics(font).horizontalAdvance(caption.text()) > width - frame)
            font.setPointSize(font.pointSize() - 1);
        caption.setFont(font);
    }

    // Empty cells over a caption, where there is one.
    QVBoxLayout* column(bool editable, int cells, const Caption* caption, int width, int height) const
    {
        auto* stack = bare<QVBoxLayout>();
        for (int i = 0; i < cells; ++i)
            stack->addWidget(cell(editable, {}, width, height));
        if (caption)
            stack->addWidget(cell(editable, text(*caption), width, height));
        stack->addStretch();
        return stack;
    }

    QHBoxLayout* changeTable(bool editable) const
    {
        auto* row = bare<QHBoxLayout>();
        for (const ChangeColumn& change : changeColumns)
            row->addLayout(column(editable, 4, &change.caption, change.width, lineHeight));
        return row;
    }

    QLayout* mainUpperRow() const
    {
        QHBoxLayout* row = changeTable(true);
        auto* wide = bare<QVBoxLayout>();
        for (const int height : {2 * lineHeight, 3 * lineHeight})
            wide->addWidget(cell(true, {}, 340, height));
        row->addLayout(wide);
        row->addStretch();
        return row;
    }

    QLayout* mainLowerRow() const
    {
        auto* row = bare<QHBoxLayout>();
        auto* names = bare<QVBoxLayout>();
        for (int i = 0; i < 3; ++i)
            names->addWidget(cell(true, {}, 100, lineHeight));
        for (const Caption* caption : {&developedCaption, &executedCaption, &verifiedCaption})
            names->addWidget(cell(false, text(*caption), 100, lineHeight));
        row->addLayout(names);
        for (const int width : {100, 80, 50})
            row->addLayout(column(true, 6, nullptr, width, lineHeight));
        for (const Caption* caption : {&stageCaption, &sheetCaption, &sheetsCaption}) {
            auto* block = bare<QVBoxLayout>();
            block->addWidget(cell(false, text(*caption), 80, blockHeight));
            block->addWidget(cell(true, {}, 80, blockHeight));
            row->addLayout(block);
        }
        row->addStretch();
        return row;
    }

    QColor captionColor_;
    bool ukrainian_;
};

} // namespace

StampDialog::StampDialog(bool ukrainian, QWidget* parent)
    : QDialog(parent)
    , ukrainian_(ukrainian)
{
    setWindowIcon(QIcon(QStringLiteral(":/images/tellurix.ico")));
    setWindowTitle(QStringLiteral("Параметры штампов проекта"));
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);
    resize(735, 500);
    setModal(true);

    const StampBuilder builder(*this, ukrainian_);
    auto* layout = new QVBoxLayout(this);
    const auto addStamp = [&](const QString& heading, QLayout* stamp) {
        auto* label = new QLabel(heading, this);
        QFont font = label->font();
        font.setBold(true);
        font.setItalic(true);
        label->setFont(font);
        layout->addWidget(label);
        layout->addLayout(stamp);
    };
    addStamp(QStringLiteral("Основной штамп"), builder.mainStamp());
    addStamp(QStringLiteral("Узкий штамп"), builder.narrowStamp());
    addStamp(QStringLiteral("Боковой штамп"), builder.sideStamp());
    layout->addStretch();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
}
