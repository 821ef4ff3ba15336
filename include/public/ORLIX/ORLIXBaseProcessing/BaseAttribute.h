// A named input or output of a processor.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/Export.h"
#include "ORLIX/ORLIXUtil/Enumeration.h"
#include "ORLIX/ORLIXUtil/ProcessingResult.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <optional>
#include <string>

namespace orlix {
class BaseDataItem;
}

namespace orlix::processor {

struct eAttributeType
{
    enum domain { eValueAttribute = 0, eDataItemAttribute = 1, eImageProcessingAttribute = 2 };
    ORLIX_ENUMERATION(eAttributeType, eValueAttribute);
};

/// Belongs to one processor; set before the run, read by one thread at a time.
class ORLIXBASEPROCESSING_API BaseAttribute
{
public:
    BaseAttribute() = default;
    virtual ~BaseAttribute();
    BaseAttribute(const BaseAttribute&) = delete;
    BaseAttribute& operator=(const BaseAttribute&) = delete;

    virtual const std::string& getObjectName() const = 0;
    virtual const std::string& getToolTip() const = 0;
    virtual bool isOptional() const { return false; }
    virtual bool isOutput() const = 0;
    virtual eAttributeType getAttributeType() const = 0;

    /// True once somebody has given it a value, also where that value is a null pointer.
    bool isSet() const { return m_bSet; }
    /// True for an attribute that was set to a null pointer.
    bool isNull() const { return m_bNull; }
    /// Set, and not to a null pointer.
    bool isHeld() const { return m_bSet && !m_bNull; }
    /// Makes it as it was when new: unset, with the default of its class.
    virtual void clear() = 0;

    /// What it holds, and what a text for it has to be: "number", "one of Int8, UInt8, Int16", "image".
    virtual std::string getValueKind() const;
    virtual bool takesText() const;
    /// Sets it to the value that the whole of `text` stands for, whatever the locale. Fails, and leaves it as it was,
    /// where the text stands for none, and always where it takes no text; the reason names the attribute, what is
    /// expected and what was found.
    virtual ProcessingResult<bool> setFromText(const std::string& text);
    /// What it holds, set or by default, as text for people; none where nothing is held or no text can tell it. Where
    /// it takes text, that text gives the value back.
    virtual std::optional<std::string> getValueText() const;
    /// The same for what it holds when it is new.
    virtual std::optional<std::string> getDefaultText() const;

    /// The data item that it holds, for who doesn't know the item's class. Null where nothing is held, where the item
    /// is one that the caller of a function lends it (`borrow`), where its class isn't derived from BaseDataItem, and
    /// for an attribute of another kind.
    virtual boost::shared_ptr<const BaseDataItem> getItem() const;
    /// Makes an input hold the item, or a null pointer as `init` does. Fails, and leaves the attribute as it was, where
    /// the item is of another class than the attribute's, and always for an output, for an attribute that holds no data
    /// item, and for one whose class isn't derived from BaseDataItem; the reason names the attribute, what is required
    /// and what was found.
    virtual ProcessingResult<bool> setInputItem(const boost::shared_ptr<const BaseDataItem>& item);
    /// The same for an output, into whose item a run writes.
    virtual ProcessingResult<bool> setOutputItem(const boost::shared_ptr<BaseDataItem>& item);

protected:
    /// The failure of `setFromText` for a text that doesn't fit.
    ProcessingResult<bool> refuseText(const std::string& text) const;
    void markSet(bool bNull = false) { m_bSet = true, m_bNull = bNull; }
    void markUnset() { m_bSet = false, m_bNull = false; }

private:
    bool m_bSet = false;
    bool m_bNull = false;
};

/// Gives an attribute class its names. `TDerived` has `static constexpr const char* g_name` and `g_toolTip`.
template <class TDerived, class TBase>
class NamedAttribute : public TBase
{
public:
    using TBase::TBase;

    static const std::string& getObjectNameStr()
    {
        static const std::string g_string(TDerived::g_name);
        return g_string;
    }
    static const std::string& getToolTipStr()
    {
        static const std::string g_string(TDerived::g_toolTip);
        return g_string;
    }
    const std::string& getObjectName() const override { return getObjectNameStr(); }
    const std::string& getToolTip() const override { return getToolTipStr(); }
};

/// What rules and initializers hold of an attribute: a reference that neither keeps it alive nor dangles.
template <class TAttribute>
class AttributeRef
{
public:
    AttributeRef() = default;
    template <class TOther>
    AttributeRef(const boost::weak_ptr<TOther>& attribute) : m_alive(attribute), m_attribute(attribute.lock().get())
    {}
    template <class TOther>
    AttributeRef(const boost::shared_ptr<TOther>& attribute) : m_alive(attribute), m_attribute(attribute.get())
    {}

    /// The attribute, or null where it is gone. Rules are checked by the processor that owns the attribute, which
    /// therefore cannot go while the pointer is in use.
    TAttribute* access() const { return m_alive.expired() ? nullptr : m_attribute; }

private:
    boost::weak_ptr<TAttribute> m_alive;
    TAttribute* m_attribute = nullptr;
};

} // namespace orlix::processor
