// Attributes that hold a data item.
#pragma once

#include "ORLIX/ORLIXBaseData/BaseDataItem.h"
#include "ORLIX/ORLIXBaseProcessing/BaseAttribute.h"
#include "ORLIX/ORLIXBaseProcessing/DataItemTable.h"

#include <boost/core/demangle.hpp>

#include <concepts>
#include <typeinfo>
#include <utility>

namespace orlix::processor {

namespace details {
/// One line for people.
ORLIXBASEPROCESSING_API std::string printedItem(const BaseDataItem& item);
ORLIXBASEPROCESSING_API ProcessingResult<bool> itemTextFailed(const BaseAttribute& attribute, const std::string& flaw);

/// The failure of an item of another class than `required`.
ORLIXBASEPROCESSING_API ProcessingResult<bool> itemClassFailed(const BaseAttribute& attribute,
                                                               const std::string& required, const BaseDataItem& found);

template <class TNode>
std::string itemClassName()
{
    if constexpr (requires { TNode::getTypeName(); }) {
        return TNode::getTypeName();
    } else {
        return boost::core::demangle(typeid(TNode).name());
    }
}

/// What `setInputItem` and `setOutputItem` of `attribute` do for an item that it can take. `TItem` is BaseDataItem,
/// const for an input.
template <class TNode, class TAttribute, class TItem>
ProcessingResult<bool> setItem(TAttribute& attribute, const boost::shared_ptr<TItem>& item)
{
    auto node = boost::dynamic_pointer_cast<TNode>(item);
    if (item && !node) {
        return itemClassFailed(attribute, itemClassName<std::remove_const_t<TNode>>(), *item);
    }
    attribute.init(std::move(node));
    return true;
}

/// Hands the one member of `TItem`, if it is a collection whose rows have a text, as a member to `action`.
template <class TItem, class TAction>
void withTable(const TAction& action)
{
    unsigned long nbMembers = 0;
    TItem::visit([&nbMembers](const char*, auto) { ++nbMembers; });
    TItem::visit([&](const char*, auto member) {
        using TColl = MemberType<TItem, decltype(member)>;
        if constexpr (TableColl<TColl>) {
            if (nbMembers == 1 && isTextTable<TColl>()) {
                action(member);
            }
        }
    });
}
} // namespace details

/// Input attribute that holds a data item which must be given before the run. A record of values takes them by name as
/// text, "Min=10,Max=20", in any order; those that are left out keep their start values. An item whose one leaf is a
/// collection of values or of such records takes a table: "@points.csv", a file that a CsvReader reads, or the table
/// itself, "X,Y;1,2;3,4". The names of the columns may be left out.
template <class TNode>
class BaseInputMandatoryDataItemAttribute : public BaseAttribute
{
public:
    using StorageType = boost::shared_ptr<const TNode>;
    static constexpr bool g_bOutput = false;

    bool isOutput() const override { return false; }
    eAttributeType getAttributeType() const override { return eAttributeType::eDataItemAttribute; }
    void clear() override { m_owned.reset(), m_node = nullptr, markUnset(); }

    void init(const StorageType& node) { m_owned = node, borrow(m_owned.get()); }
    /// Holds a node of the caller's, until `clear`.
    void borrow(const TNode* node) { m_node = node, markSet(node == nullptr); }
    /// Null for a borrowed node.
    const StorageType& getStorage() const { return m_owned; }
    const TNode& getDataItemNode() const { return *m_node; }

    boost::shared_ptr<const BaseDataItem> getItem() const override
    {
        if constexpr (DataNode<TNode>) {
            return m_owned;
        } else {
            return {};
        }
    }
    ProcessingResult<bool> setInputItem(const boost::shared_ptr<const BaseDataItem>& item) override
    {
        if constexpr (DataNode<TNode>) {
            return details::setItem<const TNode>(*this, item);
        } else {
            return BaseAttribute::setInputItem(item);
        }
    }

    bool takesText() const override { return isRecord() || isTable(); }
    std::string getValueKind() const override
    {
        if constexpr (g_bTextCandidate) {
            if (isRecord()) {
                return details::recordKind<TNode>();
            }
            if (isTable()) {
                return "@FILE.csv or rows such as \"1;2\", with the columns " + getColumns();
            }
        }
        return "data item";
    }
    ProcessingResult<bool> setFromText(const std::string& text) override
    {
        if (!takesText()) {
            return BaseAttribute::setFromText(text);
        }
        if constexpr (g_bTextCandidate) {
            const auto node = boost::make_shared<TNode>();
            std::string flaw = readNode(text, *node);
            if constexpr (SelfCheckingItem<TNode>) {
                flaw = flaw.empty() ? node->findFlaw() : flaw;
            }
            if (!flaw.empty()) {
                return details::itemTextFailed(*this, flaw);
            }
            init(node);
        }
        return true;
    }
    std::optional<std::string> getValueText() const override
    {
        std::optional<std::string> text;
        if constexpr (g_bTextCandidate) {
            if (m_node != nullptr && isRecord()) {
                text = details::recordText(*m_node);
            } else if (m_node != nullptr) {
                details::withTable<TNode>(
                    [&](auto member) { text = details::tableText(std::invoke(member, std::as_const(*m_node))); });
            }
        }
        return text;
    }

private:
    static constexpr bool g_bTextCandidate = DataNode<TNode> && DataRecord<TNode> && std::default_initializable<TNode>;

    static bool isRecord()
    {
        if constexpr (g_bTextCandidate) {
            return details::isTextRecord<TNode>();
        } else {
            return false;
        }
    }
    static bool isTable()
    {
        bool bTable = false;
        if constexpr (g_bTextCandidate) {
            details::withTable<TNode>([&bTable](auto) { bTable = true; });
        }
        return bTable;
    }
    static std::string getColumns()
    {
        std::string columns;
        details::withTable<TNode>([&columns](auto member) {
            using Row =
                typename details::RowOf<typename details::MemberType<TNode, decltype(member)>::value_type>::Type;
            if constexpr (DataRecord<Row>) {
                columns = details::recordKind<Row>();
            } else {
                columns = "<" + ValueText<Row>::kind() + ">";
            }
        });
        return columns;
    }
    static std::string readNode(const std::string& text, TNode& node)
    {
        if (isRecord()) {
            return details::readRecordText(text, node);
        }
        std::string flaw;
        details::withTable<TNode>([&](auto member) {
            CsvReader reader = text.starts_with('@') ? CsvReader::ofFile(text.substr(1)) : CsvReader::ofText(text);
            flaw = details::readTable(reader, std::invoke(member, node));
        });
        return flaw;
    }

    StorageType m_owned;
    const TNode* m_node = nullptr;
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
    void clear() override { m_owned.reset(), m_node = nullptr, markUnset(); }

    void init(const StorageType& node) { m_owned = node, borrow(m_owned.get()); }
    /// Holds a node of the caller's, until `clear`.
    void borrow(TNode* node) { m_node = node, markSet(node == nullptr); }
    /// Null for a borrowed node.
    const StorageType& getStorage() const { return m_owned; }
    TNode& getDataItemNode() const { return *m_node; }

    boost::shared_ptr<const BaseDataItem> getItem() const override
    {
        if constexpr (DataNode<TNode>) {
            return m_owned;
        } else {
            return {};
        }
    }
    ProcessingResult<bool> setOutputItem(const boost::shared_ptr<BaseDataItem>& item) override
    {
        if constexpr (DataNode<TNode>) {
            return details::setItem<TNode>(*this, item);
        } else {
            return BaseAttribute::setOutputItem(item);
        }
    }

    std::optional<std::string> getValueText() const override
    {
        if constexpr (std::derived_from<TNode, BaseDataItem>) {
            return m_node != nullptr ? std::optional(details::printedItem(*m_node)) : std::nullopt;
        } else {
            return std::nullopt;
        }
    }

private:
    StorageType m_owned;
    TNode* m_node = nullptr;
};

} // namespace orlix::processor
