// A named value on its way out of an archive.
#pragma once

#include "ORLIX/ORLIXSerialization/BaseIArchive.h"

namespace orlix {

/// `archive >> SerializationIItem<unsigned int>("version", version);`
template <ArchiveScalar T>
class SerializationIItem
{
public:
    /// Keeps a reference to `value`, which is changed only if the item could be read.
    SerializationIItem(std::string name, T& value) : m_name(std::move(name)), m_value(value) {}

    friend BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem& item)
    {
        ArchiveValue value(std::in_place_type<ArchiveType<T>>);
        archive.readValue(item.m_name, value);
        item.m_value = static_cast<T>(std::get<ArchiveType<T>>(std::move(value)));
        return archive;
    }

private:
    std::string m_name;
    T& m_value;
};

} // namespace orlix
