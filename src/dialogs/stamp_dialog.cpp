#include "dialogs/stamp_dialog.h"

#include <QDialogButtonBox>
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

// The most that a cell may take, and what the window leaves it of that.
struct CellSize {
    QSize most;
    QSize shown;

    CellSize(int width, int height)
        : CellSize({width, height}, {width, height})
    {
    }
    CellSize(QSize mostSize, QSize shownSize)
        : most(mostSize)
        , shown(shownSize)
    {
    }
};

constexpr int lineHeight = 20;
constexpr int blockHeight = 60;
// The main stamp is a rectangle: its wide cells end where the last of the three blocks below them does.
constexpr int stageWidth = 80;
constexpr int wideWidth = 3 * stageWidth;
constexpr int titleWidth = 340;
constexpr int sheetWidth = 52;
constexpr int agreedHeight = 20;
constexpr int sideHeight = 30;

// A cell of a title block: as large as it is told, whatever the style would give a line of text.
class StampCell : public QLineEdit
{
public:
    StampCell(const QString& content, const CellSize& size)
        : QLineEdit(content)
        , shown_(size.shown)
    {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        setAlignment(Qt::AlignCenter);
        setMaximumSize(size.most);
        setTextMargins(-2, 0, -2, 0);
        fitFont(content);
    }

    QSize sizeHint() const override { return shown_; }
    QSize minimumSizeHint() const override { return shown_; }

private:
    // Captions are of one size, but for one that would be cut off.
    void fitFont(const QString& content)
    {
        constexpr int largest = 12;
        constexpr int smallest = 8;
        constexpr int frame = 8;
        QFont fitting = font();
        for (int size = largest; size >= smallest; --size) {
            fitting.setPixelSize(size);
            if (QFontMetrics(fitting).horizontalAdvance(content) <= shown_.width() - frame)
                break;
        }
        setFont(fitting);
    }

    QSize shown_;
};

// Puts the three title blocks together from cells.
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
        QLineEdit* title = cell(false, {}, {titleWidth, blockHeight});
        title->setFixedWidth(titleWidth);
        stamp->addWidget(title, 0, Qt::AlignBottom);
        auto* sheet = bare<QVBoxLayout>();
        sheet->addWidget(cell(false, {}, {{60, 60}, {sheetWidth, 2 * lineHeight}}));
        sheet->addWidget(cell(false, text(sheetCaption), {{60, 120}, {sheetWidth, 3 * lineHeight}}));
        stamp->addLayout(sheet);
        stamp->addStretch();
        return stamp;
    }

    QLayout* sideStamp() const
    {
        struct Pair {
            const Caption& caption;
            int width;
        };
        auto* stamp = bare<QHBoxLayout>();
        for (const auto& [caption, width] :
            {Pair{inventoryCaption, 80}, Pair{signatureDateCaption, 100}, Pair{replacesCaption, 80}})
            stamp->addLayout(column(1, {&caption}, {{width, blockHeight}, {width, sideHeight}}));
        auto* agreed = bare<QVBoxLayout>();
        agreed->addWidget(cell(false, text(agreedCaption), {{290, blockHeight}, {290, agreedHeight}}));
        for (int row = 0; row < 2; ++row) {
            auto* cells = bare<QHBoxLayout>();
            for (const int width : {80, 80, 80, 50})
                cells->addWidget(cell(true, {}, {{width, blockHeight}, {width, agreedHeight}}));
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
    QLineEdit* cell(bool editable, const QString& content, const CellSize& size) const
    {
        auto* made = new StampCell(content, size);
        if (!content.isEmpty() || !editable) {
            made->setReadOnly(true);
            made->setAttribute(Qt::WA_TransparentForMouseEvents);
            made->setFocusPolicy(Qt::NoFocus);
        }
        if (!content.isEmpty()) {
            QPalette palette = made->palette();
            palette.setColor(QPalette::Base, captionColor_);
            made->setPalette(palette);
        }
        return made;
    }

    // Empty cells over captions.
    QVBoxLayout* column(int cells,
        std::initializer_list<const Caption*> captions,
        const CellSize& size,
        bool editable = true) const
    {
        auto* stack = bare<QVBoxLayout>();
        for (int i = 0; i < cells; ++i)
            stack->addWidget(cell(editable, {}, size));
        for (const Caption* caption : captions)
            stack->addWidget(cell(editable, text(*caption), size));
        return stack;
    }

    QHBoxLayout* changeTable(bool editable) const
    {
        auto* row = bare<QHBoxLayout>();
        for (const auto& [caption, width] : changeColumns)
            row->addLayout(column(4, {&caption}, {width, lineHeight}, editable));
        return row;
    }

    QLayout* mainUpperRow() const
    {
        QHBoxLayout* row = changeTable(true);
        auto* wide = bare<QVBoxLayout>();
        for (const int lines : {2, 3})
            wide->addWidget(cell(true, {}, {wideWidth, lines * lineHeight}));
        row->addLayout(wide);
        row->addStretch();
        return row;
    }

    QLayout* mainLowerRow() const
    {
        auto* row = bare<QHBoxLayout>();
        row->addLayout(column(3, {&developedCaption, &executedCaption, &verifiedCaption}, {100, lineHeight}));
        for (const int width : {100, 80, 50})
            row->addLayout(column(6, {}, {width, lineHeight}));
        for (const Caption* caption : {&stageCaption, &sheetCaption, &sheetsCaption}) {
            auto* block = bare<QVBoxLayout>();
            block->addWidget(cell(false, text(*caption), {stageWidth, blockHeight}));
            block->addWidget(cell(true, {}, {stageWidth, blockHeight}));
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
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    const auto addStamp = [&](const QString& heading, QLayout* stamp) {
        auto* label = new QLabel(heading, this);
        QFont font = label->font();
        font.setBold(true);
        font.setItalic(true);
        font.setPixelSize(13);
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
