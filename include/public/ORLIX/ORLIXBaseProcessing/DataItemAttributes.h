// Attributes that hold a data item.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"

namespace orlix::processor {

/// Input attribute that holds a data item which must be given before the run.
template <class TNode>
class BaseInputMandatoryDataItemAttribute : public BaseAttribute
{
public:
    using StorageType = boost::shared_ptr<const TNode>;
    static constexpr bool g_bOutput = false;

    bool isOutput() const override { return false; }
    eAttributeType getAttributeType() const override { return eAttributeType::eDataItemAttribute; }
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

/// Output attribute that holds a data item: given, or made by an output initializer.
template <class TNode>
class BaseOutputDataItemAttribute : public BaseAttribute
{
public:
    using StorageType = boost::shared_ptr<TNode>;
    static constexpr bool g_bOutput = true;

    bool isOutput() const override { return true; }
    eAttributeType getAttributeType() const override { return eAttributeType::eDataItemAttribute; }
    void clear() override { m_node.reset(), markUnset(); }

    void init(const StorageType& node) { m_node = node, markSet(!m_node); }
    const StorageType& getStorage() const { return m_node; }
    TNode& getDataItemNode() const { return *m_node; }

private:
    StorageType m_node;
};

} // namespace orlix::processor
