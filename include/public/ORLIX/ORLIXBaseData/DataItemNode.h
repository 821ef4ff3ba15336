// A data item class out of the record of its members.
#pragma once

#include "ORLIX/ORLIXBaseData/BaseDataItemNode.h"
#include "ORLIX/ORLIXBaseData/DataItemArchive.h"
#include "ORLIX/ORLIXBaseData/DataItemComparison.h"
#include "ORLIX/ORLIXBaseData/DataItemPrinting.h"
#include "ORLIX/ORLIXSerialization/ClassVersion.h"

namespace orlix {

/// The whole of a data item class is its record, either with named members or with leaves that are known by type:
///
///     struct RangeLeaves
///     {
///         struct Min : DataItemLeaf<double> { static constexpr const char* g_name = "Min"; };
///         struct Max : DataItemLeaf<double> { static constexpr const char* g_name = "Max"; };
///     };
///     struct RangeRecord : RangeLeaves, DataItemLeaves<RangeLeaves::Min, RangeLeaves::Max>
///     {
///         static constexpr const char* g_className = "orlix::imaproc::attr::Range";
///     };
///     class Range final : public DataItemNode<Range, RangeRecord> {};
///
///     range.access<Range::Max>() = 255;
///
/// `TRecord` is a DataRecord with `g_className`; its default object holds the start values. A class that is to be made
/// by name puts a static `DynamicRegistrator<Range>` into a source file.
template <class TNode, class TRecord>
class DataItemNode : public BaseDataItemNode, public TRecord
{
public:
    static const std::string& getTypeName()
    {
        static const std::string g_name = TRecord::g_className;
        return g_name;
    }
    static unsigned int getVersion() { return 1; }
    static std::unique_ptr<BaseDynamicObject> createNewObject() { return std::make_unique<TNode>(); }
    static boost::shared_ptr<BaseDynamicObject> createSharedObject() { return boost::make_shared<TNode>(); }

    const std::string& getClassName() const override { return getTypeName(); }
    std::unique_ptr<BaseDynamicObject> createNew() const override { return createNewObject(); }
    boost::shared_ptr<BaseDynamicObject> createShared() const override { return createSharedObject(); }
    /// What shared pointers in the record point to stays shared with the copy.
    std::unique_ptr<BaseDynamicObject> duplicate() const override { return std::make_unique<TNode>(getNode()); }
    boost::shared_ptr<BaseDynamicObject> duplicateShared() const override
    {
        return boost::make_shared<TNode>(getNode());
    }
    void copy(const BaseDynamicObject& source) override { accessRecord() = getNode(source).getRecord(); }

    /// One version record per archive, then the members in order.
    ProcessingResult<bool> write(BaseOArchive& archive) const override
    {
        auto result = writeClassVersion(archive, getTypeName(), getVersion());
        return result ? writeRecord(archive, getRecord()) : result;
    }

    /// On failure the object is as it was.
    ProcessingResult<bool> read(BaseIArchive& archive) override
    {
        TRecord record;
        auto result = readClassVersion(archive, getTypeName(), getVersion());
        if (result) {
            result = readRecord(archive, record);
        }
        if (result) {
            accessRecord() = std::move(record);
        }
        return result;
    }

    bool isEqual(const BaseDataItem& other) const override
    {
        const auto* node = dynamic_cast<const TNode*>(&other);
        return node != nullptr && isSameData(getRecord(), node->getRecord());
    }

    void print(std::ostream& stream) const override { printData(stream, getRecord()); }

    std::vector<std::string> getChildNames() const override
    {
        std::vector<std::string> names;
        TRecord::visit([&names](const char* name, auto) { names.emplace_back(name); });
        return names;
    }

    const TRecord& getRecord() const { return *this; }

private:
    TRecord& accessRecord() { return *this; }
    const TNode& getNode() const { return static_cast<const TNode&>(*this); }
    const TNode& getNode(const BaseDynamicObject& source) const
    {
        const auto* node = dynamic_cast<const TNode*>(&source);
        if (node == nullptr) {
            details::raiseOtherClass(*this, source);
        }
        return *node;
    }
};

} // namespace orlix
