#include "calc/shrinkage.h"

#include <cmath>
#include <numbers>

namespace
{

constexpr double flatShare = 0.01; // of the first volume: stages that near the last one do not shrink

class Drying
{
public:
    Drying(const std::vector<ShrinkageStage>& stages, const Number& moisture)
        : stages_(stages)
        , first_(stages.empty() || !stages.front().moisture ? moisture : stages.front().moisture)
    {
    }

    Shrinkage take()
    {
        for (const ShrinkageStage& stage : stages_)
            if (!isPossible(stage))
                return std::move(result_);
        for (const ShrinkageStage& stage : stages_)
            result_.points.push_back({moistureOf(stage), volumeOf(stage), stage.row, stage.isLeftOut});
        checkOrder();
        findStrains();
        findLimit();
        return std::move(result_);
    }

private:
    void remark(Remark::Kind kind, int row, const wchar_t* text)
    {
        result_.remarks.push_back({kind, "shrinkage/" + std::to_string(row), text});
    }

    bool isPossible(const ShrinkageStage& stage)
    {
        for (const Number* value : {&stage.diameter, &stage.height, &stage.mass, &stage.volume})
            if (*value && **value <= 0) {
                remark(Remark::Impossible, stage.row, L"Размер, масса или объём не положительны");
                return false;
            }
        if (stage.moisture && *stage.moisture < 0) {
            remark(Remark::Impossible, stage.row, L"Влажность отрицательна");
            return false;
        }
        return true;
    }

    // The dry mass is that of the first stage less its water.
    Number moistureOf(const ShrinkageStage& stage) const
    {
        const Number& firstMass = stages_.front().mass;
        if (stage.mass && firstMass && first_)
            return (1 + *first_) * *stage.mass / *firstMass - 1;
        return &stage == &stages_.front() ? first_ : stage.moisture;
    }

    Number volumeOf(const ShrinkageStage& stage)
    {
        if (!stage.diameter || !stage.height)
            return stage.volume;
        const double volume = std::numbers::pi * *stage.diameter * *stage.diameter * *stage.height / 4;
        if (stage.volume && std::abs(*stage.volume - volume) > 0.02 * volume)
            remark(Remark::Doubtful,
                stage.row,
                L"Объём отличается от вычисленного по диаметру и высоте более чем на 2 %");
        return volume;
    }

    void checkOrder()
    {
        const ShrinkageStage* above = nullptr;
        for (std::size_t i = 0; i < stages_.size(); ++i) {
            const ShrinkageStage& b = stages_[i];
            if (b.isLeftOut)
                continue;
            const ShrinkageStage& a = above ? *above : b;
            above = &b;
            const auto rises = [](const Number& x, const Number& y) { return x && y && *y > *x + 1e-12; };
            if (rises(a.diameter, b.diameter) || rises(a.height, b.height) || rises(a.mass, b.mass))
                remark(Remark::Doubtful, b.row, L"Размер или масса растут при высыхании");
            if (result_.points[i].moisture && *result_.points[i].moisture < -1e-9)
                remark(Remark::Impossible, b.row, L"Масса меньше массы сухого грунта");
        }
    }

    static Number relative(const Number& first, const Number& last)
    {
        return first && last && *first > 0 ? Number((*first - *last) / *first) : Number();
    }

    void findStrains()
    {
        std::vector<std::size_t> counted;
        for (std::size_t i = 0; i < stages_.size(); ++i)
            if (!stages_[i].isLeftOut)
                counted.push_back(i);
        if (counted.size() < 2)
            return;
        const ShrinkageStage& first = stages_[counted.front()];
        const ShrinkageStage& last = stages_[counted.back()];
        result_.heightStrain = relative(first.height, last.height);
        result_.diameterStrain = relative(first.diameter, last.diameter);
        result_.volumeStrain =
            relative(result_.points[counted.front()].volume, result_.points[counted.back()].volume);
    }

    // A straight line through the shrinking stages meets the level of the final volume.
    void findLimit()
    {
        std::vector<ShrinkagePoint> known;
        for (const ShrinkagePoint& point : result_.points)
            if (point.moisture && point.volume && !point.isLeftOut)
                known.push_back(point);
        if (known.size() < 4)
            return missing();
        const double last = *known.back().volume;
        const double flat = flatShare * *known.front().volume;
        double n = 0;
        double x = 0;
        double y = 0;
        double xx = 0;
        double xy = 0;
        for (const ShrinkagePoint& point : known) {
            if (std::abs(*point.volume - last) <= flat)
                continue;
            n += 1;
            x += *point.moisture;
            y += *point.volume;
            xx += *point.moisture * *point.moisture;
            xy += *point.moisture * *point.volume;
        }
        const double determinant = n * xx - x * x;
        if (n < 2 || static_cast<double>(known.size()) - n < 2 || determinant <= 1e-10 * n * xx)
            return missing();
        result_.slope = (n * xy - x * y) / determinant;
        result_.offset = (y - *result_.slope * x) / n;
        result_.finalVolume = last;
        const double limit = *result_.slope > 0 ? (last - *result_.offset) / *result_.slope : -1;
        if (limit >= 0)
            result_.limit = limit;
        else
            remark(Remark::Doubtful,
                stages_.back().row,
                L"Объём не уменьшается с влажностью: предел усадки не найден");
    }

    void missing()
    {
        if (!stages_.empty())
            remark(Remark::Missing,
                stages_.back().row,
                L"Для предела усадки нужно не меньше двух ступеней с усадкой и двух без неё");
    }

    const std::vector<ShrinkageStage>& stages_;
    Number first_;
    Shrinkage result_;
};

} // namespace

Shrinkage shrinkageOf(const std::vector<ShrinkageStage>& stages, const Number& moisture)
{
    return Drying(stages, moisture).take();
}
