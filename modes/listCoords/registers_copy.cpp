#include "db/walk_order.h"
#include "listCoords/named_registers.h"
#include "listCoords/point_cascade.h"

#include <optional>

namespace
{

template <class>
struct CopiesOf;
template <class... Parts>
struct CopiesOf<std::tuple<Parts...>> {
    using Tuple = std::tuple<std::optional<typename Parts::Map>...>;
};

struct RegisterMaps {
    PointRegister points;
    CopiesOf<std::remove_const_t<decltype(namedRegisters)>>::Tuple others;

    // Walks registers and copies side by side.
    template <class Self, class Visitor>
    static void forEach(Self& self, Visitor visit)
    {
        auto walk = [&]<std::size_t... index>(std::index_sequence<index...>)
        {
            (visit(std::get<index>(namedRegisters), std::get<index>(self.others)), ...);
        };
        walk(std::make_index_sequence<std::tuple_size_v<decltype(namedRegisters)>>());
    }
};

} // namespace

// The point register and whichever others name points.
struct RegistersCopy::Maps : RegisterMaps {
};

RegistersCopy::RegistersCopy(IDBProject& project, const std::vector<std::wstring>& pointNames)
{
    const WantedNames names(project, pointNames);
    const auto maps = std::make_shared<Maps>();
    maps->points = project.getPointRegister();
    Maps::forEach(*maps, [&](const auto& part, auto& copy) {
        if (part.count(project, names.of(part)) > 0)
            copy = part.of(project);
    });
    maps_ = maps;
}

RegistersCopy::RegistersCopy(IDBProject& project, const RegistersCopy& same)
{
    if (!same.maps_)
        return;
    std::vector<bool> isCopied;
    Maps::forEach(*same.maps_, [&](const auto&, const auto& copy) { isCopied.push_back(copy.has_value()); });
    const auto maps = std::make_shared<Maps>();
    maps->points = project.getPointRegister();
    Maps::forEach(*maps, [&, wanted = isCopied.begin()](const auto& part, auto& copy) mutable {
        if (*wanted++)
            copy = part.of(project);
    });
    maps_ = maps;
}

void RegistersCopy::putBack(IDBProject& project) const
{
    if (!maps_)
        return;
    project.setPointRegister(maps_->points);
    Maps::forEach(*maps_, [&](const auto& part, const auto& copy) {
        if (copy)
            part.of(project) = *copy;
    });
}

namespace
{

// Counts rows, and asks now and then whether to go on.
class Rows
{
public:
    Rows(std::size_t all, const PointsRemoval::Pace& pace)
        : all_(all)
        , pace_(pace)
    {
    }

    bool goOn(std::size_t rows = 1)
    {
        constexpr std::size_t often = 500; // rows
        done_ += rows;
        if (!pace_ || done_ < asked_ + often)
            return true;
        asked_ = done_;
        return pace_(static_cast<double>(done_) / static_cast<double>(all_));
    }

private:
    const std::size_t all_;
    const PointsRemoval::Pace& pace_;
    std::size_t done_ = 0;
    std::size_t asked_ = 0;
};

// False where it was called off.
template <class Place, class Map>
bool copyWithout(const Place&, const Map& from, const PointNames& names, Map& to, Rows& rows)
{
    to = from;
    Place::remove(to, names);
    return rows.goOn(from.size());
}

// Row by row where the keys have one order, so that what goes is not copied first. Else only the copy of the
// whole register has the order of the register.
template <class Place, class Map>
bool copyWithout(const InKeys<Place>&, const Map& from, const PointNames& names, Map& to, Rows& rows)
{
    WalkOrder order;
    for (const auto& entry : from) {
        if (!order.admitsNext<Map>(entry.first)) {
            to = from;
            InKeys<Place>::remove(to, names);
            return rows.goOn();
        }
        if (!Place::holds(entry.first, names))
            to.insert(to.end(), entry);
        if (!rows.goOn())
            return false;
    }
    return true;
}

} // namespace

struct PointsRemoval::Maps : RegisterMaps {
};

PointsRemoval::PointsRemoval(std::unique_ptr<Maps> others)
    : others_(std::move(others))
{
}

PointsRemoval::~PointsRemoval() = default;

std::shared_ptr<PointsRemoval> PointsRemoval::prepare(
    IDBProject& project, const std::vector<std::wstring>& pointNames, const Pace& pace)
{
    const WantedNames names(project, pointNames);
    std::size_t all = project.getPointRegister().size();
    auto maps = std::make_unique<Maps>();
    Maps::forEach(*maps, [&](const auto& part, auto& other) {
        if (part.count(project, names.of(part)) == 0)
            return;
        other.emplace();
        all += part.of(project).size();
    });
    Rows rows(all, pace);
    bool goesOn = copyWithout(InKeys<WholeKey>(), project.getPointRegister(), names.all, maps->points, rows);
    Maps::forEach(*maps, [&](const auto& part, auto& other) {
        using Where = typename std::remove_cvref_t<decltype(part)>::Where;
        goesOn = goesOn && (!other || copyWithout(Where(), part.of(project), names.of(part), *other, rows));
    });
    if (!goesOn)
        return nullptr;
    return std::shared_ptr<PointsRemoval>(new PointsRemoval(std::move(maps)));
}

void PointsRemoval::put(IDBProject& project, bool isRemoved)
{
    if (isRemoved == std::exchange(isRemoved_, isRemoved))
        return;
    std::swap(project.getPointRegister(), others_->points);
    Maps::forEach(*others_, [&](const auto& part, auto& other) {
        if (other)
            std::swap(part.of(project), *other);
    });
}
