// A named value on its way into an archive.
#pragma once

#include "ORLIX/ORLIXSerialization/BaseOArchive.h"

namespace orlix {

/// `archive << SerializationOItem<unsigned int>("version", version);`
template <ArchiveScalar T>
class SerializationOItem
{
public:
    /// Keeps a reference to `value`.
    SerializationOItem(std::string name, const T& value) : m_name(std::move(name)), m_value(value) {}

    friend BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem& item)
    {
        archive.writeValue(item.m_name, ArchiveValue(std::in_place_type<ArchiveType<T>>, item.m_value));
        return archive;
    }

private:
    std::string m_name;
    const T& m_value;
};

} // namespace orlix
