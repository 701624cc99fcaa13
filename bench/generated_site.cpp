#include "generated_site.h"

#include "section/gl_line.h"
#include "section/gl_polygon.h"
#include "section/gl_text.h"

#include <array>
#include <random>
#include <string>

namespace
{

constexpr std::array<std::wstring_view, 6> descriptions = {
    L"Насыпной грунт: суглинок со строительным мусором до 15 %",
    L"Почвенно-растительный слой",
    L"Суглинок коричневый тугопластичный, с прослоями песка мелкого",
    L"Песок средней крупности, средней плотности, водонасыщенный",
    L"Глина серая полутвердая, слоистая, с включениями карбонатов",
    L"Известняк трещиноватый, средней прочности",
};

// A decimal number as people type it: "3.40".
std::wstring hundredths(unsigned value)
{
    std::wstring text = std::to_wstring(value / 100);
    text += L'.';
    text += static_cast<wchar_t>(L'0' + value / 10 % 10);
    text += static_cast<wchar_t>(L'0' + value % 10);
    return text;
}

std::wstring pointName(std::size_t number, SiteNames names)
{
    const std::wstring digits = std::to_wstring(number);
    if (names == SiteNames::lettered || (names == SiteNames::mixed && number % 3 == 1))
        return L"Скв-" + digits;
    if (names == SiteNames::mixed && number % 3 == 2)
        return digits + L"а";
    return digits;
}

class Site
{
public:
    Reference<DBProject> make(std::size_t points, SiteNames names)
    {
        for (std::size_t i = 1; i <= points; ++i)
            addPoint(pointName(i, names), i % 3 == 0);
        const std::size_t objects = points * 10000 / 23000;
        for (std::size_t i = 0; i < objects; ++i)
            lists_[i % lists_.size()]->push_back(drawing().detach());
        return project_;
    }

private:
    void addPoint(const std::wstring& name, bool sounded)
    {
        PointRow row{hundredths(below(900000)),
            hundredths(below(900000)),
            hundredths(9000 + below(4000)),
            1,
            L"0.00",
            L"",
            L"",
            L"14.05.2024",
            1};
        project_->addPointRegisterEntry({name, std::uint8_t{1}}, {row});
        unsigned depth = 0;
        for (unsigned layer = 5 + below(6); layer > 0; --layer) {
            depth += 30 + below(300);
            const auto& description = descriptions[below(descriptions.size())];
            project_->addLithology({name, hundredths(depth)}, {L"aQ4", std::wstring(description)});
        }
        for (unsigned sample = 1; sample <= 5; ++sample)
            project_->addSample({name, hundredths(sample * 150)}, {static_cast<int>(below(3))});
        project_->addWaterLevel({name, hundredths(100 + below(500))}, {{2024, 5, 14}, 1, 0});
        for (unsigned sample = 1; sample <= 2; ++sample)
            project_->addLabSample({name, hundredths(sample * 300)}, labSample());
        if (sounded)
            addSounding(name);
    }

    LabSample labSample()
    {
        LabSample sample;
        sample.number = ++labNumber_;
        sample.code = L"Л-" + std::to_wstring(labNumber_);
        sample.soilKind = {1, L"Суглинок"};
        for (int id = 0; id < 20; ++id)
            sample.physical.push_back({id, true, hundredths(below(300)), 0, 999});
        for (std::uint8_t fraction = 4; fraction < 16; ++fraction)
            sample.grading.emplace(fraction, hundredths(below(2000)));
        auto& loads = sample.shear[1];
        auto& compression = sample.compression[1];
        for (int load = 0; load < 10; ++load) {
            loads.push_back({load, hundredths(below(40))});
            compression.cells.push_back({load, hundredths(below(40)), hundredths(below(40)), L"", 0, L""});
        }
        return sample;
    }

    void addSounding(const std::wstring& name)
    {
        std::vector<SoundingRow> rows;
        for (unsigned depth = 1; depth <= 200; ++depth)
            rows.push_back(
                {hundredths(depth * 10), {hundredths(below(3000)), hundredths(below(9000)), L"", L""}});
        project_->addSounding({name, 3, L"C979", L"14.05.2024"}, rows);
    }

    // Half of them lines, a quarter captions, a quarter hatched polygons.
    Reference<GLObjectDB> drawing()
    {
        const Uuid id{{below(1U << 31U), below(1U << 31U), below(1U << 31U), below(1U << 31U)}};
        const Vec3 colour{0, 0, 1};
        switch (below(4)) {
        case 0:
            return makeReference<GLTextDB>(
                GLTextData{place(), colour, 2.5F, hundredths(below(3000)), 0}, id, L"GLTextDB", Uuid{});
        case 1:
            return makeReference<GLPolygonDB>(
                GLPolygonData{colour, {place(), place(), place(), place()}, 1, 0},
                id,
                L"GLPolygonDB",
                Uuid{});
        default:
            return makeReference<GLLineDB>(
                GLLineData{1, place(), place(), colour, 0.3F}, id, L"GLLineDB", Uuid{});
        }
    }

    Vec3 place() { return {static_cast<float>(below(10000)), static_cast<float>(below(10000)), 0}; }

    unsigned below(std::size_t bound) { return static_cast<unsigned>(random_() % bound); }

    Reference<DBProject> project_ = makeReference<DBProject>();
    std::array<GLObjectList*, 3> lists_ = {
        &project_->getTerrainGlObjectsA(), &project_->getLongGlObjects(), &project_->getCrossGlObjects()};
    std::mt19937 random_{2024};
    int labNumber_ = 0;
};

} // namespace

Reference<DBProject> generatedSite(std::size_t points, SiteNames names)
{
    return Site().make(points, names);
}
