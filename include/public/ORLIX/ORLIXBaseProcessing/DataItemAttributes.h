// Attributes that hold a data item.
#pragma once

#include "ORLIX/ORLIXBaseData/BaseDataItem.h"
#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

#include <concepts>

namespace orlix::processor {

namespace details {
/// One line for people.
ORLIXBASEPROCESSING_API std::string printedItem(const BaseDataItem& item);
} // namespace details

/// Input attribute that holds a data item which must be given before the run.
template <class TNode>
class BaseInputMandatoryDataItemAttribute : public BaseAttribute
{
public:
    using StorageType = boost::shared_ptr<const TNode>;
    static constexpr bool g_bOutput = false;

    bool isOutput() const override { return false; }
    eAttributeType getAttributeType() const override { return eAttributeType::eDataItemAttribute; }
    std::string getValueKind() const override { return "data item"; }
    void clear() override { m_node.reset(), markUnset(); }

    void init(const StorageType& node) { m_node = node, markSet(!m_node); }
    const StorageType& getStorage() const { return m_node; }
    const TNode& getDataItemNode() const { return *m_node; }

private:
    StorageType m_node;
};

/// The same for one that may be left out.
template <class TNode>
class BaseInputOptionalDataItemAttribute : public BaseInputMandatoryDataItemAttribute<TNode>
{
public:
    bool isOptional() const override { return true; }
};

/// Output attribute that holds a data item: given, or made by an output initializer. Its text is the printed item.
template <class TNode>
class BaseOutputDataItemAttribute : public BaseAttribute
{
public:
    using StorageType = boost::shared_ptr<TNode>;
    static constexpr bool g_bOutput = true;

    bool isOutput() const override { return true; }
    eAttributeType getAttributeType() const override { return eAttributeType::eDataItemAttribute; }
    std::string getValueKind() const override { return "data item"; }
    void clear() override { m_node.reset(), markUnset(); }

    void init(const StorageType& node) { m_node = node, markSet(!m_node); }
    const StorageType& getStorage() const { return m_node; }
    TNode& getDataItemNode() const { return *m_node; }

    std::optional<std::string> getValueText() const override
    {
        if constexpr (std::derived_from<TNode, BaseDataItem>) {
            return m_node ? std::optional(details::printedItem(*m_node)) : std::nullopt;
        } else {
            return std::nullopt;
        }
    }

private:
    StorageType m_node;
};

} // namespace orlix::processor
