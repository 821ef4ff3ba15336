// A data item for each plan of an image.
#pragma once

#include "ORLIX/ORLIXBaseData/BasePlanIndexedColl.h"
#include "ORLIX/ORLIXBaseData/DataItemArchive.h"
#include "ORLIX/ORLIXBaseData/DataItemComparison.h"
#include "ORLIX/ORLIXBaseData/DataItemPrinting.h"
#include "ORLIX/ORLIXSerialization/ClassVersion.h"

#include <memory>
#include <utility>

namespace orlix {

/// `T` is a data item class with `getTypeName`, made by its default constructor. Entries are shared with whoever
/// inserted or found them; an entry may be null, which `find` shows as no entry.
template <DataNode T>
class PlanIndexedColl final : public BasePlanIndexedColl
{
public:
    using ItemType = T;

    static const std::string& getTypeName()
    {
        static const std::string g_name = "orlix::PlanIndexedColl<" + T::getTypeName() + ">";
        return g_name;
    }
    static unsigned int getVersion() { return 1; }
    static std::unique_ptr<BaseDynamicObject> createNewObject() { return std::make_unique<PlanIndexedColl>(); }
    static boost::shared_ptr<BaseDynamicObject> createSharedObject() { return boost::make_shared<PlanIndexedColl>(); }

    /// Raises ORLIXBaseDataException if the plan has an entry, and changes nothing then.
    void insert(const PlanIndex& index, boost::shared_ptr<T> item)
    {
        m_items.push_back(std::move(item));
        try {
            addIndex(index);
        } catch (...) {
            m_items.pop_back();
            throw;
        }
    }

    /// The plan's entry, null if it has none.
    boost::shared_ptr<T> find(const PlanIndex& index)
    {
        const unsigned long position = findPosition(index);
        return position < size() ? m_items[position] : nullptr;
    }
    boost::shared_ptr<const T> find(const PlanIndex& index) const
    {
        const unsigned long position = findPosition(index);
        return position < size() ? m_items[position] : nullptr;
    }

    /// Entry `position` in order of insertion; raises ORLIXBaseDataException past the end.
    const boost::shared_ptr<T>& getItem(unsigned long position)
    {
        getPlanIndex(position);
        return m_items[position];
    }
    boost::shared_ptr<const T> getItem(unsigned long position) const
    {
        getPlanIndex(position);
        return m_items[position];
    }

    void initPlanIndexed(unsigned long sizeZ, unsigned long sizeC, unsigned long sizeT) override
    {
        PlanIndexedColl fresh;
        const PlanIndex sizes(sizeZ, sizeC, sizeT);
        const unsigned long count = countPlans(sizes, fresh.m_items.max_size());
        fresh.m_items.reserve(count);
        for (unsigned long t = 0; count > 0 && t < sizeT; ++t) {
            for (unsigned long c = 0; c < sizeC; ++c) {
                for (unsigned long z = 0; z < sizeZ; ++z) {
                    fresh.insert({z, c, t}, boost::make_shared<T>());
                }
            }
        }
        fresh.growMaxSizes(sizes);
        *this = std::move(fresh);
    }

    const std::string& getClassName() const override { return getTypeName(); }
    std::unique_ptr<BaseDynamicObject> createNew() const override { return createNewObject(); }
    boost::shared_ptr<BaseDynamicObject> createShared() const override { return createSharedObject(); }
    /// The copy shares the entries.
    std::unique_ptr<BaseDynamicObject> duplicate() const override { return std::make_unique<PlanIndexedColl>(*this); }
    boost::shared_ptr<BaseDynamicObject> duplicateShared() const override
    {
        return boost::make_shared<PlanIndexedColl>(*this);
    }
    void copy(const BaseDynamicObject& source) override
    {
        const auto* coll = dynamic_cast<const PlanIndexedColl*>(&source);
        if (coll == nullptr) {
            details::raiseOtherClass(*this, source);
        }
        *this = *coll;
    }

    ProcessingResult<bool> write(BaseOArchive& archive) const override
    {
        auto result = writeClassVersion(archive, getTypeName(), getVersion());
        if (result) {
            result = writeData(archive, "sizes", getMaxSizes());
        }
        if (result) {
            result = writeData(archive, "plans", getOrder());
        }
        return result ? writeData(archive, "items", m_items) : result;
    }

    /// On failure the object is as it was.
    ProcessingResult<bool> read(BaseIArchive& archive) override
    {
        PlanIndex sizes;
        std::vector<PlanIndex> order;
        std::vector<boost::shared_ptr<T>> items;
        auto result = readClassVersion(archive, getTypeName(), getVersion());
        if (result) {
            result = readData(archive, "sizes", sizes);
        }
        if (result) {
            result = readData(archive, "plans", order);
        }
        if (result) {
            result = readData(archive, "items", items);
        }
        return result ? rebuild(sizes, order, std::move(items)) : result;
    }

    bool isEqual(const BaseDataItem& other) const override
    {
        const auto* coll = dynamic_cast<const PlanIndexedColl*>(&other);
        return coll != nullptr && getMaxSizes() == coll->getMaxSizes() && getOrder() == coll->getOrder() &&
               isSameData(m_items, coll->m_items);
    }

    void print(std::ostream& stream) const override
    {
        stream << "{plans: ";
        printData(stream, getOrder());
        stream << ", items: ";
        printData(stream, m_items);
        stream << '}';
    }

private:
    ProcessingResult<bool> rebuild(const PlanIndex& sizes, const std::vector<PlanIndex>& order,
                                   std::vector<boost::shared_ptr<T>> items)
    {
        auto result = checkOrder(order, items.size());
        if (result) {
            PlanIndexedColl fresh;
            for (const PlanIndex& index : order) {
                fresh.addIndex(index);
            }
            fresh.growMaxSizes(sizes);
            fresh.m_items = std::move(items);
            *this = std::move(fresh);
        }
        return result;
    }

    std::vector<boost::shared_ptr<T>> m_items; ///< in order of insertion
};

} // namespace orlix
