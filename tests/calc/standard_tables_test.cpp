#include "calc/number_support.h"
#include "calc/standard_tables.h"

namespace
{

using enum TableQuantity;
using enum TableSoil;

Number valueOf(TableQuantity quantity, TableSoil soil, double voidRatio, Number liquidity = {})
{
    return StandardTables::ofProgram().value(
        quantity, {.soil = soil, .voidRatio = voidRatio, .liquidity = liquidity});
}

std::wstring mistakesOf(std::string text)
{
    std::vector<TableMistake> mistakes;
    StandardTables::read(text, mistakes);
    std::wstring all;
    for (const TableMistake& mistake : mistakes)
        all += std::to_wstring(mistake.line) + L" " + mistake.text + L"; ";
    return all;
}

// The program's own text with one piece replaced.
std::string changed(const std::string& from, const std::string& to)
{
    std::string text(StandardTables::programText());
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

} // namespace

TEST(StandardTables, ValuesByKindVoidRatioAndLiquidity)
{
    EXPECT_EQ(StandardTables::ofProgram().rows().size(), 85U);
    expectNumber(valueOf(Friction, FineSand, .65), 32, 1e-9);
    expectNumber(valueOf(Friction, FineSand, .60), 34, 1e-9);
    expectNumber(valueOf(Modulus, Loam, .70, .4), 16.5, 1e-9);
    expectNumber(valueOf(Cohesion, Clay, .65, .25), 68, 1e-9);
    expectNumber(valueOf(Cohesion, Clay, .65, .26), 57, 1e-9);
    expectNumber(valueOf(Cohesion, Loam, .55, -.3), 37, 1e-9);
    expectNumber(valueOf(Friction, SandyLoam, .85, .75), 18, 1e-9);
    // Outside no value: looser, denser, softer, a hole of the table, an unknown state.
    EXPECT_FALSE(valueOf(Friction, FineSand, .76).has_value());
    EXPECT_FALSE(valueOf(Cohesion, Clay, .54, .1).has_value());
    EXPECT_FALSE(valueOf(Cohesion, Loam, .75, .76).has_value());
    EXPECT_FALSE(valueOf(Modulus, MediumSand, .70).has_value());
    EXPECT_FALSE(valueOf(Modulus, Loam, .70).has_value());
    EXPECT_EQ(StandardTables::ofProgram().reliability(Friction, FineSand), 1.1);
    EXPECT_EQ(StandardTables::ofProgram().reliability(Friction, Clay), 1.15);
    EXPECT_EQ(StandardTables::ofProgram().reliability(Cohesion, SiltySand), 1.5);
    EXPECT_EQ(StandardTables::ofProgram().reliability(Modulus, Loam), 1);
}

TEST(StandardTables, FactorsOfTheOedometerAgreeWithEachOther)
{
    const StandardTables& tables = StandardTables::ofProgram();
    const TableState loam{.soil = Loam, .voidRatio = .692, .liquidity = .3};
    expectNumber(tables.oedometerFactor(OedometerFactor, loam).value, 2.574, 1e-9);
    expectNumber(tables.oedometerFactor(FieldFactor, loam).value, 4.29, 1e-9);
    const struct {
        TableSoil soil;
        int kind;
    } kinds[] = {{SandyLoam, 2}, {Loam, 3}, {Clay, 4}};
    for (const auto& [soil, kind] : kinds)
        for (double e = .45; e < 1.1; e += .1) {
            const TableState state{.soil = soil, .voidRatio = e, .liquidity = .5};
            const auto field = tables.oedometerFactor(FieldFactor, state);
            const auto direct = tables.oedometerFactor(OedometerFactor, state);
            EXPECT_NEAR(*field.value * *tables.lateralExpansion(kind), *direct.value, .051) << e;
            EXPECT_EQ(field.isBeyond, direct.isBeyond);
        }
    const auto loose = tables.oedometerFactor(FieldFactor, {.soil = Clay, .voidRatio = 1.3, .liquidity = 0});
    expectNumber(loose.value, 4.5, 1e-9);
    EXPECT_TRUE(loose.isBeyond);
    EXPECT_FALSE(
        tables.oedometerFactor(FieldFactor, {.soil = Clay, .voidRatio = .8, .liquidity = .76}).value);
    EXPECT_FALSE(tables.oedometerFactor(FieldFactor, {.soil = FineSand, .voidRatio = .6}).value);
}

TEST(StandardTables, ResistanceByStateOfTheSoil)
{
    const struct {
        TableState state;
        Number expected;
    } rows[] = {
        {{.soil = Loam, .voidRatio = .7, .liquidity = .5}, 215},
        {{.soil = Loam, .voidRatio = .6, .liquidity = 0}, 275},
        {{.soil = Clay, .voidRatio = .7, .liquidity = 1}, 250},
        {{.soil = SandyLoam, .voidRatio = .6, .liquidity = -.2}, 275},
        {{.soil = SandyLoam, .voidRatio = .71, .liquidity = .5}, {}},
        {{.soil = Loam, .voidRatio = .7, .liquidity = 1.1}, {}},
        {{.soil = Loam, .voidRatio = .7}, {}},
        {{.soil = MediumSand, .voidRatio = .55}, 500},
        {{.soil = MediumSand, .voidRatio = .56}, 400},
        {{.soil = MediumSand, .voidRatio = .71}, {}},
        {{.soil = FineSand, .voidRatio = .7, .saturation = .5}, 300},
        {{.soil = FineSand, .voidRatio = .7, .saturation = .9}, 200},
        {{.soil = SiltySand, .voidRatio = .6, .saturation = .6}, 200},
        {{.soil = SiltySand, .voidRatio = .8, .saturation = .81}, 100},
        {{.soil = SiltySand, .voidRatio = .8}, {}},
        {{.soil = Pebbles, .isFilledWithSand = true}, 600},
        {{.soil = Gravel, .liquidity = .6}, 350},
        {{.soil = Gravel}, {}},
    };
    for (const auto& [state, expected] : rows) {
        const Number found = StandardTables::ofProgram().resistance(state);
        ASSERT_EQ(found.has_value(), expected.has_value()) << static_cast<int>(state.soil);
        EXPECT_NEAR(found.value_or(0), expected.value_or(0), 1e-9) << static_cast<int>(state.soil);
    }
}

TEST(StandardTables, AFileOfTheUserTellsItsFaults)
{
    EXPECT_EQ(mistakesOf(std::string(StandardTables::programText())), L"");
    EXPECT_EQ(mistakesOf("\xEF\xBB\xBF" + std::string(StandardTables::programText())), L"");
    const std::string row = "бета; суглинок; -; 0.6; ГОСТ 12248";
    std::vector<TableMistake> mistakes;
    const auto own = StandardTables::read(changed(row, "бета; суглинок; -; 0,62; своя практика\r"), mistakes);
    EXPECT_TRUE(mistakes.empty());
    EXPECT_EQ(own.lateralExpansion(3), .62);

    const struct {
        const char* line;
        const wchar_t* told;
    } rows[] = {
        {"", L"0 нет строки: бета, суглинок; "},
        {"бета; суглинок; -; 0.6", L"пять полей"},
        {"гамма; суглинок; -; 0.6; x", L"неизвестная величина"},
        {"бета; торф; -; 0.6; x", L"неизвестный грунт"},
        {"бета; суглинок; IL x; 0.6; x", L"состояние"},
        {"бета; суглинок; IL 1..0; 0.6; x", L"состояние"},
        {"бета; суглинок; -; 0.6 0.7; x", L"значения"},
        {"бета; суглинок; -; 0.5:1 0.4:2; x", L"значения"},
        {"бета; суглинок; -; -1; x", L"значения"},
        {"бета; суглинок; -; ; x", L"значения"},
        {"гамма c; суглинок; IL 0..1; 0.9; x", L"меньше 1"},
        {"бета; суглинок; -; 0.6; -;", L"пять полей"},
        {"бета; суглинок; -; 0.6;", L"источник"},
        {"бета; глина; -; 0.6; x", L"уже есть"},
        {"бета; суглинок; -; 0.6; \xFF", L"UTF-8"},
    };
    for (const auto& [line, told] : rows)
        EXPECT_NE(mistakesOf(changed(row, line)).find(told), std::wstring::npos) << line;
}
