#pragma once

#include "laboratory/sample_cells.h"

#include <QHash>

// The ids of a table's rows by their samples: a sample keeps its id however the rows move.
class SampleIds
{
public:
    qint64 of(const PointDepthKey& key)
    {
        qint64& id = ids_[textOf(key)];
        if (id == 0)
            id = next();
        return id;
    }
    // For a row that is no sample yet.
    qint64 next() { return ++last_; }
    // What has this id is that sample from now on.
    void give(const PointDepthKey& key, qint64 id) { ids_.insert(textOf(key), id); }
    void reserve(std::size_t samples) { ids_.reserve(static_cast<int>(samples)); }
    // No id comes a second time.
    void clear() { ids_.clear(); }

private:
    QHash<QString, qint64> ids_;
    qint64 last_ = 0;
};
