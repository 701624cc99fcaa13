#include "ground/soil_support.h"

namespace
{

const wchar_t* const none = L"Не определен";

} // namespace

TEST(CohesiveSoil, NamedByPlasticityIndex)
{
    Soils soils;
    expectThresholds({{1, none, L"Супесь", L"Супесь"},
                         {7, L"Супесь", L"Супесь", L"Суглинок"},
                         {17, L"Суглинок", L"Суглинок", L"Глина"}},
        [&](const std::wstring& index) {
            soils.determineCohesive(index, L"");
            return soils.soilName();
        });
    soils.determineCohesive(L"7,5", L"");
    EXPECT_EQ(soils.soilName(), L"Супесь");
}

TEST(CohesiveSoil, ConsistencyByLiquidityIndexOnTheLadderOfItsSoil)
{
    Soils soils;
    const auto consistencyAt = [&](const std::wstring& plasticity) {
        return [&soils, plasticity](const std::wstring& liquidity) {
            soils.determineCohesive(plasticity, liquidity);
            EXPECT_EQ(soils.consistencyNameAgain(), soils.consistencyName());
            return soils.consistencyName();
        };
    };
    expectThresholds(
        {{0, L"твердая", L"пластичная", L"пластичная"}, {1, L"пластичная", L"пластичная", L"текучая"}},
        consistencyAt(L"5"));
    expectThresholds({{0, L"твердый", L"полутвердый", L"полутвердый"},
                         {0.25F, L"полутвердый", L"полутвердый", L"тугопластичный"},
                         {0.5F, L"тугопластичный", L"тугопластичный", L"мягкопластичный"},
                         {0.75F, L"мягкопластичный", L"мягкопластичный", L"текучепластичный"},
                         {1, L"текучепластичный", L"текучепластичный", L"текучий"}},
        consistencyAt(L"10"));
    expectThresholds({{0, L"твердая", L"полутвердая", L"полутвердая"},
                         {0.25F, L"полутвердая", L"полутвердая", L"тугопластичная"},
                         {0.5F, L"тугопластичная", L"тугопластичная", L"мягкопластичная"},
                         {0.75F, L"мягкопластичная", L"мягкопластичная", L"текучепластичная"},
                         {1, L"текучепластичная", L"текучепластичная", L"текучая"}},
        consistencyAt(L"20"));
}

TEST(CohesiveSoil, LiquidityIndexIsReadWheneverThereIsAPlasticityIndex)
{
    Soils soils;
    soils.determineCohesive(L"20", L"0.1");
    soils.determineCohesive(L"", L"не число");
    EXPECT_EQ(soils.soilName(), none);
    EXPECT_EQ(soils.consistencyName(), none);
    EXPECT_EQ(failureOf([&] { soils.determineCohesive(L"0.5", L"не число"); }), "invalid stof argument");
    EXPECT_EQ(failureOf([&] { soils.determineCohesive(L"12", L"1e99"); }), "stof argument out of range");
    EXPECT_EQ(soils.soilName(), L"Суглинок");
    EXPECT_EQ(soils.consistencyName(), none);
}

TEST(CohesiveSoil, SpeaksTheLanguageOfReports)
{
    Soils soils;
    soils.settings().setReportLanguage(1);
    soils.determineCohesive(L"20", L"0.6");
    EXPECT_EQ(soils.soilName() + L" " + soils.consistencyName(), L"Глина м'якопластична");
    soils.determineCohesive(L"", L"");
    EXPECT_EQ(soils.soilName(), L"Не визначений");
    soils.settings().setReportLanguage(2);
    soils.determineCohesive(L"", L"");
    EXPECT_EQ(soils.soilName(), L"Не визначений");
    EXPECT_EQ(failureOf([&] { soils.determineCohesive(L"20", L""); }), "invalid map<K, T> key");
}

TEST(Rock, SevenLadders)
{
    Soils soils;
    // Grades one of the seven arguments and leaves the others empty.
    const auto graded = [&](std::size_t argument, const std::wstring& (GroundController::*result)()) {
        return [&soils, argument, result](const std::wstring& text) {
            std::array<std::wstring, 7> texts;
            texts[argument] = text;
            soils.determineRockGrades(texts[0], texts[1], texts[2], texts[3], texts[4], texts[5], texts[6]);
            return (soils.*result)();
        };
    };
    expectThresholds({{1.2F, L"очень рыхлый", L"рыхлый", L"рыхлый"},
                         {2.1F, L"рыхлый", L"рыхлый", L"плотный"},
                         {2.5F, L"плотный", L"плотный", L"очень плотный"}},
        graded(0, &GroundController::densityGrade));
    expectThresholds(
        {{0.005F, L"неводопроницаемый", L"слабоводопроницаемый", L"слабоводопроницаемый"},
            {0.3F, L"слабоводопроницаемый", L"водопроницаемый", L"водопроницаемый"},
            {3, L"водопроницаемый", L"сильноводопроницаемый", L"сильноводопроницаемый"},
            {30, L"сильноводопроницаемый", L"сильноводопроницаемый", L"очень сильноводопроницаемый"}},
        graded(1, &GroundController::permeabilityGrade));
    expectThresholds({{1, L"очень низкой прочности", L"низкой прочности", L"низкой прочности"},
                         {3, L"низкой прочности", L"низкой прочности", L"пониженной прочности"},
                         {5, L"пониженной прочности", L"пониженной прочности", L"малопрочный"},
                         {15, L"малопрочный", L"малопрочный", L"средней прочности"},
                         {50, L"средней прочности", L"средней прочности", L"прочный"},
                         {120, L"прочный", L"прочный", L"очень прочный"}},
        graded(2, &GroundController::strengthGrade));
    expectThresholds({{0.8F, L"сильновыветрелый", L"выветрелый", L"выветрелый"},
                         {0.9F, L"выветрелый", L"слабовыветрелый", L"слабовыветрелый"},
                         {1, L"слабовыветрелый", L"невыветрелый", none}},
        graded(3, &GroundController::weatheringGrade));
    expectThresholds({{0.75F, L"размягчаемый", L"неразмягчаемый", L"неразмягчаемый"}},
        graded(4, &GroundController::softeningGrade));
    expectThresholds({{0.01F, L"нерастворимый", L"труднорастворимый", L"труднорастворимый"},
                         {1, L"труднорастворимый", L"среднерастворимый", L"среднерастворимый"},
                         {10, L"среднерастворимый", L"среднерастворимый", L"легкорастворимый"}},
        graded(5, &GroundController::solubilityGrade));
    expectThresholds(
        {{2, L"незасоленный", L"незасоленный", L"засоленный"}}, graded(6, &GroundController::salinityGrade));
}

TEST(Rock, ABadTextLeavesEarlierGradesNewAndLaterOnesOld)
{
    Soils soils;
    soils.determineRockGrades(L"2", L"1", L"60", L"1", L"0.8", L"5", L"1");
    EXPECT_EQ(
        failureOf([&] { soils.determineRockGrades(L"2.3", L"0.1", L"2", L"мало", L"0.5", L"20", L"3"); }),
        "invalid stof argument");
    EXPECT_EQ(soils.strengthGrade(), L"низкой прочности");
    EXPECT_EQ(soils.densityGrade(), L"плотный");
    EXPECT_EQ(soils.weatheringGrade(), none);
    EXPECT_EQ(soils.softeningGrade(), L"неразмягчаемый");
    EXPECT_EQ(soils.permeabilityGrade(), L"водопроницаемый");
}

// By the one whose text is bad: what comes before it is graded anew, what comes behind keeps its grade.
TEST(Rock, GradesInItsOrder)
{
    using Result = const std::wstring& (GroundController::*)();
    struct Step {
        std::size_t argument;
        Result result;
    };
    const Step order[] = {{2, &GroundController::strengthGrade},
        {0, &GroundController::densityGrade},
        {3, &GroundController::weatheringGrade},
        {4, &GroundController::softeningGrade},
        {5, &GroundController::solubilityGrade},
        {1, &GroundController::permeabilityGrade},
        {6, &GroundController::salinityGrade}};
    Soils soils;
    const auto determine = [&soils](const std::array<std::wstring, 7>& t) {
        soils.determineRockGrades(t[0], t[1], t[2], t[3], t[4], t[5], t[6]);
    };
    for (std::size_t bad = 0; bad < std::size(order); ++bad) {
        std::array<std::wstring, 7> texts;
        texts.fill(L"0.5");
        determine(texts);
        std::array<std::wstring, 7> old;
        for (std::size_t i = 0; i < std::size(order); ++i)
            old[i] = (soils.*order[i].result)();
        texts.fill(L""); // undetermined
        texts[order[bad].argument] = L"?";
        EXPECT_EQ(failureOf([&] { determine(texts); }), "invalid stof argument");
        for (std::size_t i = 0; i < std::size(order); ++i)
            EXPECT_EQ((soils.*order[i].result)(), i <= bad ? none : old[i]) << bad << ", " << i;
    }
}

// Every text before anything was determined, in the language that was spoken then.
TEST(Classification, BeginsUndetermined)
{
    for (const auto& [language, wanted] : {std::pair{0, L"Не определен"}, std::pair{1, L"Не визначений"}}) {
        PlainSettings settings;
        settings.setReportLanguage(language);
        class Fresh final : public GroundController
        {
        public:
            explicit Fresh(PlainSettings& spoken)
                : GroundController(&spoken, nullptr)
            {
            }
        } fresh(settings);
        for (const auto result : {&GroundController::soilName,
                 &GroundController::consistencyName,
                 &GroundController::groupName,
                 &GroundController::densityGrade,
                 &GroundController::permeabilityGrade,
                 &GroundController::strengthGrade,
                 &GroundController::weatheringGrade,
                 &GroundController::softeningGrade,
                 &GroundController::solubilityGrade,
                 &GroundController::salinityGrade,
                 &GroundController::consistencyNameAgain,
                 &GroundController::frozenStateName})
            EXPECT_EQ((fresh.*result)(), wanted);
        EXPECT_EQ(fresh.elementValue(), 0);
        std::int32_t value = -7;
        fresh.setElementValue(value);
        EXPECT_EQ(fresh.elementValue(), -7);
    }
}
