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

} // namespace

struct RegistersCopy::Maps {
    PointRegister points;
    CopiesOf<std::remove_const_t<decltype(namedRegisters)>>::Tuple others;

    // Walks registers and copies side by side.
    template <class Self, class Visitor>
    static void forEach(Self& self, Visitor visit)
    {
        const auto walk = [&]<std::size_t... index>(std::index_sequence<index...>)
        {
            (visit(std::get<index>(namedRegisters), std::get<index>(self.others)), ...);
        };
        walk(std::make_index_sequence<std::tuple_size_v<decltype(namedRegisters)>>());
    }
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
    const auto maps = std::make_shared<Maps>(*same.maps_);
    maps->points = project.getPointRegister();
    Maps::forEach(*maps, [&](const auto& part, auto& copy) {
        if (copy)
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
