#include "core/base/reference.h"
#include "core/base/text_number.h"
#include "db/db_project.h"
#include "dictionaries/fractions.h"
#include "dictionaries/soil_names.h"
#include "ground/grading.h"
#include "ground/ground_controller.h"
#include "oracle.h"
#include "platform/code_page.h"
#include "site/plain_settings.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// The classification under a script of calls, a line each: a letter, then texts parted by bars.
//
//   c PLASTICITY|LIQUIDITY     r SEVEN TEXTS OF ROCK     f SEVEN TEXTS OF FROZEN GROUND
//   g FRACTIONS   s FRACTIONS  groups and sands; a fraction is a letter for its number, from a on, and its
//                              percentage
//   n LETTER                   sets the soil group, from a = 0 on
//   l LETTER                   the report language: a Russian, b Ukrainian, any other none
//   p LETTER                   the scale of fractions: a 800, b 200, z no project, any other neither

namespace
{

using Texts = std::vector<std::wstring>;

class Soils : public GroundController
{
public:
    Soils(ISettings& settings, IDBProject& project)
        : GroundController(&settings, &project)
    {
    }
    virtual ~Soils() = default;
    using GroundController::classifyFor;
};

const char* const noNumber = "invalid stof argument";
const char* const beyondRange = "stof argument out of range";
const char* const missingKey = "invalid map<K, T> key";

// What the conversion of a text says; null where it is a number. The standard library's own conversion, in
// the C locale, must say the same: it differs for the numbers below the normal ones alone, some of which it
// takes.
const char* faultOf(const std::wstring& text)
{
    const char* fault = nullptr;
    float value = 0;
    try {
        value = textToFloat(text);
    } catch (const std::invalid_argument& failure) {
        require(failure.what() == std::string(noNumber), "the message of a text without a number");
        fault = noNumber;
    } catch (const std::out_of_range& failure) {
        require(failure.what() == std::string(beyondRange), "the message of a number beyond range");
        fault = beyondRange;
    }
    try {
        const float expected = std::stof(text);
        const bool isSubnormal = std::fpclassify(expected) == FP_SUBNORMAL;
        require(fault == (isSubnormal ? beyondRange : nullptr), "a number where the library reads one");
        require(
            fault || std::isnan(expected) == std::isnan(value), "not-a-number where the library reads one");
        require(fault || std::isnan(value) || std::bit_cast<int>(value) == std::bit_cast<int>(expected),
            "the number that the library reads");
    } catch (const std::invalid_argument&) {
        require(fault == noNumber, "no number where the library reads none");
    } catch (const std::out_of_range&) {
        require(fault == beyondRange, "out of range where the library says so");
    }
    return fault;
}

// The fault that a call must end with that reads these texts in this order, those that are empty aside.
const char* firstFault(const Texts& texts)
{
    const char* first = nullptr;
    for (const std::wstring& text : texts)
        if (const char* fault = text.empty() ? nullptr : faultOf(text); fault && !first)
            first = fault;
    return first;
}

// Calls and returns the message of the failure; null where it went well.
template <class Call>
std::string failureOf(Call&& call)
{
    try {
        call();
    } catch (const std::invalid_argument& failure) {
        require(failure.what() == std::string(noNumber), "the only text of an invalid argument");
        return failure.what();
    } catch (const std::out_of_range& failure) {
        return failure.what();
    }
    return {};
}

// A field, and the names of a dictionary that it may hold.
template <class Names>
struct Field {
    const std::wstring& (GroundController::*get)();
    const Names& names;
    int first;
    int last;
};
template <class Names>
Field(const std::wstring& (GroundController::*)(), const Names&, int, int) -> Field<Names>;

class Run
{
public:
    void line(std::wstring_view text)
    {
        if (text.empty())
            return;
        const wchar_t operation = text.front();
        const Texts texts = split(text.substr(1));
        switch (operation) {
        case L'c':
            return cohesive(texts);
        case L'r':
            return rock(texts);
        case L'f':
            return frozen(texts);
        case L'g':
            return fractions(texts, false);
        case L's':
            return fractions(texts, true);
        case L'n':
            return soils_.setSoilGroup(letter(texts));
        case L'l':
            return settings_.setReportLanguage(letter(texts));
        case L'p':
            return scale(letter(texts));
        default:
            return;
        }
    }

    // Whatever happened, every field holds a name that a report may show.
    void requireNames()
    {
        checkAll([this](const auto& field) { requireName(field, anyLanguage); });
    }

private:
    static constexpr int anyLanguage = -1;

    static Texts split(std::wstring_view text)
    {
        Texts texts;
        for (std::size_t bar = 0; bar != std::wstring_view::npos;) {
            bar = text.find(L'|');
            texts.emplace_back(text.substr(0, bar));
            text.remove_prefix(bar == std::wstring_view::npos ? text.size() : bar + 1);
        }
        texts.resize(std::max<std::size_t>(texts.size(), 7));
        return texts;
    }
    static int letter(const Texts& texts) { return texts[0].empty() ? 0 : texts[0].front() - L'a'; }

    bool knowsLanguage() { return settings_.reportLanguage() == 0 || settings_.reportLanguage() == 1; }

    // Without a language every name that would be found fails; when, the ladders decide.
    void requireFailure(const std::string& failure, const char* expected)
    {
        if (failure != (expected ? expected : ""))
            require(failure == missingKey && !knowsLanguage(), "the failure of the first bad text");
    }

    void cohesive(const Texts& texts)
    {
        const std::string failure = failureOf([&] { soils_.determineCohesive(texts[0], texts[1]); });
        requireFailure(failure, firstFault(texts[0].empty() ? Texts() : Texts{texts[0], texts[1]}));
        if (failure.empty()) {
            requireName(soilName, settings_.reportLanguage());
            requireName(consistencyName, settings_.reportLanguage());
        }
        require(&soils_.consistencyName() == &soils_.consistencyNameAgain(), "one consistency");
    }

    void rock(const Texts& t)
    {
        const std::string failure =
            failureOf([&] { soils_.determineRockGrades(t[0], t[1], t[2], t[3], t[4], t[5], t[6]); });
        requireFailure(failure, firstFault({t[2], t[0], t[3], t[4], t[5], t[1], t[6]}));
        if (failure.empty())
            checkRock([this](const auto& field) { requireName(field, settings_.reportLanguage()); });
    }

    // What is read depends on the group, which only the grading may know.
    void frozen(const Texts& t)
    {
        const std::string failure =
            failureOf([&] { soils_.determineFrozenGrades(t[0], t[1], t[2], t[3], t[4], t[5], t[6]); });
        bool explained = failure.empty() || (failure == missingKey && !knowsLanguage());
        for (std::size_t i = 0; i < 7; ++i)
            explained = explained || (!t[i].empty() && faultOf(t[i]) && failure == faultOf(t[i]));
        require(explained, "a failure of one of the texts");
    }

    void fractions(const Texts& texts, bool sand)
    {
        GroundController::Fractions given;
        for (const std::wstring& text : texts)
            if (!text.empty())
                given.emplace(static_cast<std::uint8_t>(text.front() - L'a' + 1), text.substr(1));
        std::int32_t answer = 0;
        const std::string failure = failureOf([&] {
            if (sand)
                answer = soils_.determineSand(given);
            else
                soils_.determineGroup(given);
        });
        const int standard = hasProject_ ? project_->getGranGost() : -1;
        const bool isScale = standard == gradingScale200 || standard == gradingScale800;
        const char* expected = isScale ? faultOfFractions(standard, given) : nullptr;
        require(failure == (expected ? expected : ""), "the failure of the grading");
        if (!sand || !failure.empty())
            return;
        const int nothing = standard == gradingScale200 ? -4 : -19;
        const int last = standard == gradingScale200 ? 4 : 7;
        require(isScale ? answer >= nothing && answer <= last : answer == standard, "a class of the scale");
    }

    // A number that the scale lacks shows before any text is read; these are read from the coarsest on.
    static const char* faultOfFractions(int standard, const GroundController::Fractions& given)
    {
        const auto& ranks = standard == gradingScale200 ? fractionRank200 : fractionRank800;
        Texts byRank(fractionRanks + 1);
        for (const auto& [number, percentage] : given) {
            const int* rank = ranks.find(number);
            if (!rank)
                return missingKey;
            byRank.at(static_cast<std::size_t>(*rank)) = percentage;
        }
        return firstFault(byRank);
    }

    void scale(int standard)
    {
        hasProject_ = standard != L'z' - L'a';
        if (hasProject_)
            project_->setGranGost(standard);
        soils_.classifyFor(hasProject_ ? project_.get() : nullptr);
    }

    template <class Names>
    void requireName(const Field<Names>& field, int language)
    {
        const std::wstring& name = (soils_.*field.get)();
        for (const int each : {0, 1}) {
            if (language != anyLanguage && each != (language == 0 ? 0 : 1))
                continue;
            if (name == plasticSoilNames.at(each, 4))
                return;
            for (int i = field.first; i <= field.last; ++i)
                if (name == field.names.at(each, i))
                    return;
        }
        require(false, "a name of the dictionary");
    }

    static constexpr Field soilName{&GroundController::soilName, plasticSoilNames, 0, 2};
    static constexpr Field consistencyName{&GroundController::consistencyName, consistencyNames, 0, 12};

    template <class Check>
    static void checkRock(Check&& check)
    {
        check(Field{&GroundController::strengthGrade, rockGradeNames, 0, 6});
        check(Field{&GroundController::densityGrade, rockGradeNames, 7, 10});
        check(Field{&GroundController::weatheringGrade, rockGradeNames, 11, 14});
        check(Field{&GroundController::softeningGrade, rockGradeNames, 15, 16});
        check(Field{&GroundController::solubilityGrade, rockGradeNames, 17, 20});
        check(Field{&GroundController::permeabilityGrade, rockGradeNames, 21, 25});
        check(Field{&GroundController::salinityGrade, rockGradeNames, 26, 27});
    }
    template <class Check>
    void checkAll(Check&& check)
    {
        check(soilName);
        check(consistencyName);
        check(Field{&GroundController::groupName, soilGroupNames, 1, 9});
        check(Field{&GroundController::frozenStateName, frozenGradeNames, 7, 9});
        checkRock([&](const auto& field) {
            // Salinity has two writers.
            if (field.get != &GroundController::salinityGrade || !isFrozenSalinity())
                check(field);
        });
    }
    bool isFrozenSalinity()
    {
        for (const int language : {0, 1})
            for (int i = 4; i <= 6; ++i)
                if (soils_.salinityGrade() == frozenGradeNames.at(language, i))
                    return true;
        return false;
    }

    PlainSettings settings_;
    Reference<DBProject> project_ = makeReference<DBProject>();
    bool hasProject_ = true;
    Soils soils_{settings_, *project_};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring script = fromCodePage({reinterpret_cast<const char*>(data), size});
    Run run;
    for (std::size_t begin = 0; begin < script.size();) {
        const std::size_t end = std::min(script.find(L'\n', begin), script.size());
        run.line(std::wstring_view(script).substr(begin, end - begin));
        begin = end + 1;
    }
    run.requireNames();
    return 0;
}
