#include "static/sounding_states.h"

#include "db/exact_key.h"

JournalState journalState(IDBProject& project, const std::wstring& point)
{
    JournalState state;
    state.point = point;
    for (const auto& [key, rows] : project.getPointRegister())
        if (key.pointName == point)
            state.kind = key.pointKind;
    for (const auto& [key, rows] : project.getSoundings())
        if (key.pointName == point) {
            state.exists = true;
            state.kind = key.pointKind;
            state.device = key.device;
            state.date = key.date;
            state.rows = rows;
        }
    return state;
}

void putJournal(IDBProject& project, const JournalState& state)
{
    SoundingRegister& all = project.getSoundings();
    const SoundingKey key{state.point, state.kind, state.device, state.date};
    const auto found = findExact(all, key);
    if (found != all.end()) {
        if (state.exists && found->first.device == state.device && found->first.date == state.date) {
            found->second = state.rows;
            return;
        }
        all.erase(found);
    }
    if (state.exists)
        project.addSounding(key, state.rows);
}

PileState pileState(IDBProject& project)
{
    return {project.getSoundingValueA(),
        project.getSoundingValueB(),
        project.getSoundingValueC(),
        project.getSoundingValueD(),
        project.getSoundingTriples(),
        project.getSoundingFlags(),
        project.getSoundingCalcRows()};
}

void putPile(IDBProject& project, const PileState& state)
{
    project.setSoundingValueA(state.instrument);
    project.setSoundingValueB(state.probe);
    project.setSoundingValueC(state.kind);
    project.setSoundingValueD(state.section);
    project.getSoundingTriples() = state.triples;
    project.setSoundingFlags(state.flags);
    project.setSoundingCalcRows(state.results);
}
