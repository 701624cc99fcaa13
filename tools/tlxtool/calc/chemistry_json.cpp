#include "platform/utf8.h"
#include "site/chemistry.h"
#include "tlxtool/calc/sections.h"

#include <iostream>

namespace
{

constexpr const char* gradeKeys[] = {"W4", "W6", "W8", "W10-W14", "W16-W20"};

Results verdictResult(const AggressivenessVerdict& verdict)
{
    return {
        {"class", verdict.level ? Results(aggressivenessName(*verdict.level)) : Results()},
        {"by", verdict.by.empty() ? Results() : Results(verdict.by)},
    };
}

// In water by the edition in force the limit is either passed or not.
Results reinforcementResult(const AggressivenessVerdict& verdict, bool isPassedOrNot)
{
    if (!verdict.level)
        return {};
    if (isPassedOrNot)
        return *verdict.level == Aggressiveness::None ? "none" : "aggressive";
    return aggressivenessName(*verdict.level);
}

Results metalResult(const AggressivenessVerdict& verdict)
{
    return verdict.level ? Results(metalAggressivenessName(*verdict.level)) : Results();
}

void addIons(Results& made, const WaterChemistry& chemistry)
{
    Results meq = Results::object();
    Results percent = Results::object();
    for (const IonShare& share : chemistry.shares) {
        meq[share.ion->name] = numberResult(share.meq);
        percent[share.ion->name] = numberResult(share.percent);
    }
    made["meq"] = std::move(meq);
    made["percent"] = std::move(percent);
    made["balancePercent"] = numberResult(chemistry.balancePercent);
    made["mineralisationGL"] = numberResult(chemistry.mineralisationGL);
    made["dryResidueMgL"] = numberResult(chemistry.dryResidueMgL);
    made["hardness"] = numberResult(chemistry.hardness);
    made["carbonateHardness"] = numberResult(chemistry.carbonateHardness);
    const std::optional<Kurlov> formula = kurlov(chemistry);
    made["kurlov"] = formula ? textResult(kurlovText(*formula)) : Results();
}

void append(Remarks& all, const Remarks& more)
{
    all.insert(all.end(), more.begin(), more.end());
}

Results analysisJson(
    const SiteAnalysis& site, const AggressivenessLimits& limits, const ProtectionChoice& choice)
{
    const WaterChemistry chemistry = waterChemistry(site.analysis);
    Results made = {
        {"point", textResult(site.point)},
        {"depth", textResult(site.depth)},
        {"kind", site.analysis.isWater ? "water" : "soil"},
    };
    addIons(made, chemistry);
    Remarks remarks = site.remarks;
    append(remarks, chemistry.remarks);
    Results concrete = Results::object();
    for (const char* grade : gradeKeys) {
        const AggressivenessVerdict verdict =
            concreteVerdict(limits, site.analysis, chemistry, choice, grade);
        concrete[grade] = verdictResult(verdict);
        if (grade == gradeKeys[0])
            append(remarks, verdict.remarks);
    }
    made["concrete"] = std::move(concrete);
    made["reinforcement"] = reinforcementResult(
        reinforcementVerdict(limits, site.analysis, choice), site.analysis.isWater && !choice.isOldEdition);
    made["steel"] = metalResult(steelVerdict(limits, site.analysis, site.cathodeCurrent));
    if (!site.analysis.isWater) {
        made["lead"] = metalResult(sheathVerdict(limits, site.analysis, Attacked::Lead));
        made["aluminium"] = metalResult(sheathVerdict(limits, site.analysis, Attacked::Aluminium));
    }
    if (!remarks.empty())
        made["remarks"] = remarksResult(remarks);
    return made;
}

} // namespace

Results chemistryResults(const CalcContext& context)
{
    // The command stands beside the program, and so does the office's file of limits.
    const AggressivenessLimits& limits = limitsInUse();
    if (!limitMistakes().empty())
        std::cerr << toUtf8(limitsMessage(limitMistakes())) << '\n';
    const ProtectionChoice choice = protectionChoice(context.project);
    Results all = Results::array();
    for (const SiteAnalysis& site : siteAnalyses(context.project))
        all.push_back(analysisJson(site, limits, choice));
    return all;
}
