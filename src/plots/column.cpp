#include "plots/column.h"

#include "core/base/typed_number.h"
#include "dictionaries/captions.h"
#include "dictionaries/report_language.h"
#include "drawing/text_layout.h"
#include "plots/column_sheet.h"

#include <algorithm>

namespace
{

constexpr double headWithFacts = 3 * headRow + 1; // on the first sheet
constexpr double headOfNext = headRow + 1;
constexpr double footHeight = 5; // for the note below the table

struct HeadWords {
    std::wstring_view number;
    std::wstring_view depth;
    std::wstring_view mark;
    std::wstring_view scale;
    std::wstring_view date;
    std::wstring_view sounding;
    std::wstring_view continued;
    std::wstring_view opened;
    std::wstring_view nothing;
    std::wstring_view leftOut;
    std::wstring_view title;
};

const HeadWords& headWords(int language)
{
    static const HeadWords words[] = {
        {captions::boreholeNumberRussian,
            captions::totalDepthRussian,
            captions::mouthMarkRussian,
            captions::verticalScale,
            L"Дата: ",
            L"Зондирование: ",
            L" (продолжение)",
            L"* — вскрытая мощность",
            L"Слои не описаны",
            L"Без мощности, не показаны: ",
            L"Инженерно-геологическая колонка. "},
        {captions::boreholeNumberUkrainian,
            captions::totalDepthUkrainian,
            captions::mouthMarkUkrainian,
            captions::verticalScale,
            L"Дата: ",
            L"Зондування: ",
            L" (продовження)",
            L"* — розкрита потужність",
            L"Шари не описані",
            L"Без потужності, не показані: ",
            L"Інженерно-геологічна колонка. "},
    };
    return words[languagePlace(language)];
}

// What a pit is called is said by its kind.
std::wstring nameOf(const ColumnData& data, const ColumnLook& look)
{
    if (!look.heading.empty())
        return look.heading;
    const bool isBorehole = data.kind.empty() || data.kind.starts_with(L"Скв");
    return (isBorehole ? std::wstring(headWords(look.language).number) : data.kind + L" №: ") + data.point;
}

class ColumnMaker
{
public:
    ColumnMaker(const ColumnData& data, const ColumnLook& look)
        : data_(data)
        , look_(look)
        , field_(look.sheet.field())
        , lanes_(placedLanes(look, field_.left, field_.right))
        , lines_(descriptionLines(data, measures(scale_).descriptionWidth))
    {
    }

    std::vector<Drawing> make()
    {
        scale_ = look_.scale > 0 ? look_.scale : fittingScale();
        const std::vector<ColumnPage> pages = planColumn(data_, measures(scale_));
        std::vector<Drawing> sheets;
        for (std::size_t page = 0; page < pages.size(); ++page)
            sheets.push_back(sheetOfPage(pages, page));
        return sheets;
    }

private:
    double bodyHeight(bool isFirst) const
    {
        const double head = isFirst ? headWithFacts : headOfNext;
        const double block = titleBlockHeight(isFirst ? look_.firstBlock : look_.nextBlock);
        return field_.bottom - field_.top - head - captionHeight - footHeight - block;
    }

    ColumnMeasures measures(int scale) const
    {
        ColumnMeasures made;
        made.lines = &lines_;
        made.perMetre = 1000.0 / scale;
        made.firstHeight = std::max(30.0, bodyHeight(true));
        made.nextHeight = std::max(30.0, bodyHeight(false));
        made.descriptionWidth = 0;
        for (const PlacedLane& lane : lanes_) {
            if (lane.lane.column == column_lane::Description)
                made.descriptionWidth = std::max(3.0, lane.right - lane.left - 2 * rowPadding);
            if (lane.lane.column == column_lane::Samples)
                made.labelHeight = sampleLabelHeight;
            if (lane.lane.column == column_lane::Water)
                made.waterHeight = waterLabelHeight;
        }
        return made;
    }

    int fittingScale() const
    {
        const std::vector<int> scales = columnScales();
        for (const int scale : scales)
            if (drawnDepth(data_) * 1000.0 / scale <= bodyHeight(true)
                && planColumn(data_, measures(scale)).size() == 1)
                return scale;
        // Texts or depth need several sheets in any case: no more of them, and the strip as large as they
        // take.
        const std::size_t fewest = planColumn(data_, measures(scales.back())).size();
        const double room = bodyHeight(true) + static_cast<double>(fewest - 1) * bodyHeight(false);
        for (const int scale : scales)
            if (drawnDepth(data_) * 1000.0 / scale <= room
                && planColumn(data_, measures(scale)).size() <= fewest)
                return scale;
        return scales.back();
    }

    Drawing sheetOfPage(const std::vector<ColumnPage>& pages, std::size_t page) const
    {
        const bool isFirst = page == 0;
        const bool isLast = page + 1 == pages.size();
        Drawing drawing = emptySheet(look_.sheet);
        drawing.title = nameOf(data_, look_);
        drawing.shows = data_.point;
        Sketch sketch(drawing);
        drawHead(sketch, isFirst);
        const double top = field_.top + (isFirst ? headWithFacts : headOfNext);
        ColumnSheet(drawing, data_, look_, pages[page], 1000.0 / scale_, lanes_).draw(top, isLast);
        drawFoot(sketch, isFirst, isLast);
        addColumnBlocks(sketch, look_, sheetTitle(), page, pages.size());
        return drawing;
    }

    std::wstring sheetTitle() const
    {
        if (!look_.texts.title.empty())
            return look_.texts.title;
        return (look_.heading.empty() ? std::wstring(headWords(look_.language).title) : std::wstring())
            + nameOf(data_, look_);
    }

    void drawHead(Sketch& sketch, bool isFirst) const
    {
        const HeadWords& words = headWords(look_.language);
        const double width = field_.right - field_.left;
        const double split = field_.left + width * 0.72;
        sketch.setLayer(Layer::Text);
        const auto cell = [&](int row, double left, double right, const std::wstring& text, bool isName) {
            const double top = field_.top + row * headRow;
            sketch.textInBox(text,
                {left, top, right, top + headRow},
                {.height = isName ? 3.5 : 2.5,
                    .align = Align::Left,
                    .font = isName ? Font::Bold : Font::Plain,
                    .smallest = 1.2,
                    .padding = 1});
        };
        const std::wstring name = nameOf(data_, look_);
        cell(0, field_.left, split, isFirst ? name : name + std::wstring(words.continued), true);
        cell(0, split, field_.right, std::wstring(words.scale) + std::to_wstring(scale_), false);
        if (!isFirst || !look_.heading.empty())
            return;
        const double third = field_.left + width * 0.36;
        cell(1, field_.left, third, withUnit(words.depth, data_.depthText), false);
        cell(1, third, split, withUnit(words.mark, data_.mouthMark), false);
        if (!data_.date.empty())
            cell(1, split, field_.right, std::wstring(words.date) + data_.date, false);
        if (!data_.x.empty() || !data_.y.empty())
            cell(2, field_.left, third, L"X: " + data_.x + L"   Y: " + data_.y, false);
        if (hasLane(column_lane::Sounding) && !data_.sounding.rows.empty())
            cell(2, third, field_.right, soundingText(words), false);
    }

    std::wstring soundingText(const HeadWords& words) const
    {
        const ColumnSounding& sounding = data_.sounding;
        std::wstring text = std::wstring(words.sounding) + sounding.point;
        if (sounding.distance > 0)
            text += L" (" + numberText(sounding.distance, 1) + L" м)";
        return text;
    }

    static std::wstring withUnit(std::wstring_view caption, const std::wstring& metres)
    {
        return std::wstring(caption) + (metres.empty() ? L"—" : metres + L" м");
    }

    void drawFoot(Sketch& sketch, bool isFirst, bool isLast) const
    {
        const HeadWords& words = headWords(look_.language);
        constexpr double height = 2;
        const double block = titleBlockHeight(isFirst ? look_.firstBlock : look_.nextBlock);
        const double y = field_.bottom - block - 1.4;
        sketch.setLayer(Layer::Text);
        std::wstring note;
        if (data_.layers.empty() && data_.leftOut.empty())
            note = words.nothing;
        else if (isLast && hasLane(column_lane::Thickness) && look_.heading.empty() && !data_.layers.empty())
            note = words.opened;
        if (isLast && !data_.leftOut.empty()) {
            note += (note.empty() ? L"" : L". ") + std::wstring(words.leftOut);
            for (const std::wstring& layer : data_.leftOut)
                note += (&layer == &data_.leftOut.front() ? L"" : L", ") + layer;
        }
        const double room = field_.right - field_.left - 2;
        if (note.empty())
            return;
        sketch.text(shortenedText(note, Font::Narrow, height, room),
            {field_.left + 1, y},
            height,
            Align::Left,
            Font::Narrow);
    }

    bool hasLane(std::int32_t column) const
    {
        return std::any_of(lanes_.begin(), lanes_.end(), [column](const PlacedLane& lane) {
            return lane.lane.column == column;
        });
    }

    const ColumnData& data_;
    const ColumnLook& look_;
    Extent field_;
    std::vector<PlacedLane> lanes_;
    int scale_ = 100;
    DescriptionLines lines_;
};

} // namespace

std::vector<int> columnScales()
{
    return {10, 20, 25, 40, 50, 75, 100, 150, 200, 250, 300, 400, 500};
}

std::vector<ColumnLane> usualLanes()
{
    using namespace column_lane;
    return {{Index, true},
        {Thickness, true},
        {Bottom, true},
        {Mark, true},
        {Strip, false},
        {Description, false},
        {Element, true},
        {Water, true},
        {Samples, true},
        {Sounding, false}};
}

std::vector<Drawing> columnOf(const ColumnData& data, const ColumnLook& look)
{
    return ColumnMaker(data, look).make();
}
