// Writes and reads the members of data items, whatever they are made of.
#pragma once

#include "ORLIX/ORLIXBaseData/DataValue.h"
#include "ORLIX/ORLIXSerialization/ArchiveSectionManager.h"
#include "ORLIX/ORLIXSerialization/SerializationIItem.h"
#include "ORLIX/ORLIXSerialization/SerializationOItem.h"

#include <boost/make_shared.hpp>

#include <functional>
#include <string>

namespace orlix {

/// Writes `value` as an item or a section of that name. The result is that of the nodes inside.
template <class T>
ProcessingResult<bool> writeData(BaseOArchive& archive, const std::string& name, const T& value);

/// Reads what `writeData` wrote. On failure `value` holds anything; a bad archive raises ORLIXSerializationException.
template <class T>
ProcessingResult<bool> readData(BaseIArchive& archive, const std::string& name, T& value);

/// The members of a record without a section around them.
template <DataRecord T>
ProcessingResult<bool> writeRecord(BaseOArchive& archive, const T& record)
{
    ProcessingResult<bool> result = true;
    T::visit([&](const char* name, auto member) {
        if (result) {
            result = writeData(archive, name, std::invoke(member, record));
        }
    });
    return result;
}

template <DataRecord T>
ProcessingResult<bool> readRecord(BaseIArchive& archive, T& record)
{
    ProcessingResult<bool> result = true;
    T::visit([&](const char* name, auto member) {
        if (result) {
            result = readData(archive, name, std::invoke(member, record));
        }
    });
    return result;
}

namespace details {

template <class T>
ProcessingResult<bool> writeSectionContent(BaseOArchive& archive, const T& value)
{
    if constexpr (DataNode<T>) {
        return value.write(archive);
    } else if constexpr (DataRecord<T>) {
        return writeRecord(archive, value);
    } else if constexpr (DataPointer<T>) {
        const bool bSet = value != nullptr;
        archive << SerializationOItem<bool>("set", bSet);
        return bSet ? writeData(archive, "object", *value) : BoolResult::success();
    } else {
        static_assert(DataCollection<T>, "a data item can't hold this type");
        const unsigned long size = value.size();
        archive << SerializationOItem<unsigned long>("size", size);
        ProcessingResult<bool> result = true;
        for (auto element = value.begin(); result && element != value.end(); ++element) {
            result = writeData(archive, "element", *element);
        }
        return result;
    }
}

template <class T>
ProcessingResult<bool> readSectionContent(BaseIArchive& archive, T& value)
{
    if constexpr (DataNode<T>) {
        return value.read(archive);
    } else if constexpr (DataRecord<T>) {
        return readRecord(archive, value);
    } else if constexpr (DataPointer<T>) {
        bool bSet = false;
        archive >> SerializationIItem<bool>("set", bSet);
        value.reset();
        if (!bSet) {
            return BoolResult::success();
        }
        const auto object = boost::make_shared<std::remove_const_t<typename T::element_type>>();
        value = object;
        return readData(archive, "object", *object);
    } else {
        static_assert(DataCollection<T>, "a data item can't hold this type");
        unsigned long size = 0;
        archive >> SerializationIItem<unsigned long>("size", size);
        value.clear();
        // No room is reserved: the size is only believed as far as elements follow.
        ProcessingResult<bool> result = true;
        for (unsigned long i = 0; result && i < size; ++i) {
            result = readData(archive, "element", value.emplace_back());
        }
        return result;
    }
}

} // namespace details

template <class T>
ProcessingResult<bool> writeData(BaseOArchive& archive, const std::string& name, const T& value)
{
    if constexpr (ArchiveScalar<T>) {
        archive << SerializationOItem<T>(name, value);
        return BoolResult::success();
    } else {
        ArchiveSectionManager section(archive, name);
        auto result = details::writeSectionContent(archive, value);
        section.close();
        return result;
    }
}

template <class T>
ProcessingResult<bool> readData(BaseIArchive& archive, const std::string& name, T& value)
{
    if constexpr (ArchiveScalar<T>) {
        archive >> SerializationIItem<T>(name, value);
        return BoolResult::success();
    } else {
        ArchiveSectionManager section(archive, name);
        auto result = details::readSectionContent(archive, value);
        if (result) {
            section.close();
        }
        return result;
    }
}

} // namespace orlix
