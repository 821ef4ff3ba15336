// The frame of level 3: strips, handed to kernels by parsers, and values.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelScaffold.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorPool.h"
#include "ORLIX/ORLIXMath/Simd/ForceInline.h"
#include "ORLIXIPL/ORLIXImageProcessing/ImageBufferTypeIdentifier.h"
#include "ORLIXIPL/ORLIXImageProcessing/Level/KernelLevelRows.h"
#include "ORLIXIPL/ORLIXImageProcessing/Rule/ImageRuleTypes.h"

namespace orlix::imaproc {

/// `TDerived` says its `g_text`, its `Rule` as a type, and its kernels; `TTypedBy` names the attributes whose element
/// types choose among these. `TRows` are its attributes in order of creation, each with the way in which kernels get
/// it. Parsers come in the order of the rows; a strip attribute that is not set has none.
template <class TDerived, class TLibrary, class TTypedBy, class... TRows>
class KernelLevel;

template <class TDerived, class TLibrary, class... TTyped, class... TRows>
class KernelLevel<TDerived, TLibrary, TypedBy<TTyped...>, TRows...>
    : public processor::KernelScaffold<TDerived, TLibrary, typename TRows::Attribute...>
{
public:
    processor::RulePtr createRule() const { return TDerived::Rule::make(this->accessOwnAttributes()); }

    /// Where the levels above give a whole plan as one strip: see DispatchLevel.
    template <class TValues>
    static constexpr bool canBeStraight()
    {
        return true;
    }
    template <class TValues>
    static bool isStraight(const TValues&)
    {
        return true;
    }
    /// Runs a kept processor of the class on values that it borrows, without rule and run state.
    template <class TValues>
    static ProcessingResult<bool> runStraight(const TValues& values)
    {
        boost::shared_ptr<TDerived> kept = processor::takeOrMake<TDerived>();
        ProcessingResult<bool> result = static_cast<KernelLevel&>(*kept).processBorrowed(values);
        processor::ProcessorPool<TDerived>::keep(std::move(kept));
        return result;
    }

protected:
    /// For kernels: first element of the current block of a strip attribute; const for an input, null for a strip that
    /// is not set.
    template <class TAttribute>
    ORLIX_SIMD_INLINE auto accessBlock() const
    {
        using Pointer = std::conditional_t<TAttribute::g_bOutput, void*, const void*>;
        return static_cast<Pointer>(m_blocks[details::indexOfRow<TAttribute, TRows...>()]);
    }
    /// For kernels: where the image lies that is written.
    ORLIX_SIMD_INLINE simd::eMemoryPlace getOutputPlace() const { return m_place; }
    /// The parser of a strip attribute; null where the attribute is not set.
    template <class TAttribute>
    auto* accessParser() const
    {
        return std::get<details::ParserSlot<details::RowOf<TAttribute, TRows...>>>(m_slots).parser.get();
    }

    ProcessingResult<bool> getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const override
    {
        types.init(ImageBufferTypeIdentifier(this->template accessAttribute<TTyped>()->getImageBufferType())...);
        return true;
    }
    ProcessingResult<bool> initDataParserColl(processor::DataParserVector& parsers) override
    {
        unsigned long nbParsers = 0;
        (createParser<TRows>(parsers, nbParsers), ...);
        parsers.resize(nbParsers);
        const bool bTouch = (doLinesTouch<TRows>() && ...);
        (joinLines<TRows>(bTouch), ...);
        return true;
    }
    void clearDataParserColl() override { (clearParser<TRows>(), ...); }
    void takeBlocks() override { (takeBlock<TRows>(), ...); }

private:
    template <class TRow>
    using Slot = details::ParserSlot<TRow>;

    template <class TRow>
    typename TRow::Attribute& access() const
    {
        return *this->template accessAttribute<typename TRow::Attribute>();
    }
    template <class TRow>
    auto* heldParser() const
    {
        return access<TRow>().isHeld() ? std::get<Slot<TRow>>(m_slots).parser.get() : nullptr;
    }
    template <class TRow>
    void setBlock(void* block)
    {
        m_blocks[details::indexOfRow<typename TRow::Attribute, TRows...>()] = block;
    }

    template <class TRow>
    void createParser(processor::DataParserVector& parsers, unsigned long& nbParsers)
    {
        if constexpr (TRow::g_bStrip) {
            setBlock<TRow>(nullptr);
        }
        if constexpr (TRow::g_bStrip && TRow::Attribute::g_bOutput) {
            if (access<TRow>().isHeld()) {
                m_place = access<TRow>().accessStrip().getMemoryPlace();
            }
        }
        if constexpr (TRow::g_bParsed) {
            if (!access<TRow>().isHeld()) {
                return;
            }
            Slot<TRow>& slot = std::get<Slot<TRow>>(m_slots);
            slot.bind(access<TRow>());
            if (!slot.parser) {
                return;
            }
            if (nbParsers == parsers.size()) {
                parsers.push_back(slot.parser);
            } else if (parsers[nbParsers] != slot.parser) {
                parsers[nbParsers] = slot.parser;
            }
            ++nbParsers;
        }
    }
    template <class TRow>
    bool doLinesTouch() const
    {
        if constexpr (TRow::g_bJoinsLines) {
            const auto* parser = heldParser<TRow>();
            return parser == nullptr || parser->doLinesTouch();
        } else {
            return true;
        }
    }
    template <class TRow>
    void joinLines(bool bJoined)
    {
        if constexpr (TRow::g_bJoinsLines) {
            if (auto* parser = std::get<Slot<TRow>>(m_slots).parser.get()) {
                parser->joinLines(bJoined);
            }
        }
    }
    template <class TRow>
    void clearParser()
    {
        if constexpr (TRow::g_bParsed) {
            if (auto* parser = std::get<Slot<TRow>>(m_slots).parser.get()) {
                parser->clear();
            }
        }
    }
    template <class TRow>
    void takeBlock()
    {
        if constexpr (TRow::g_bParsed) {
            if (auto* parser = heldParser<TRow>()) {
                setBlock<TRow>(const_cast<void*>(static_cast<const void*>(parser->accessBuffer())));
                if constexpr (TRow::Attribute::g_bOutput) {
                    m_place = parser->isCopied() ? simd::eMemoryPlace::secondLevelCache : m_place;
                }
            }
        }
    }

    /// The attributes hold strips and values of the caller's for a moment.
    template <class TValues>
    class Borrowed
    {
    public:
        Borrowed(KernelLevel& level, const TValues& values) : m_level(level), m_strips(details::Lent<TRows>(values)...)
        {
            (std::get<details::Lent<TRows>>(m_strips).lend(m_level.access<TRows>(), values), ...);
        }
        ~Borrowed() { (m_level.access<TRows>().TRows::Attribute::clear(), ...); }
        Borrowed(const Borrowed&) = delete;
        Borrowed& operator=(const Borrowed&) = delete;

    private:
        KernelLevel& m_level;
        std::tuple<details::Lent<TRows>...> m_strips;
    };

    /// Are there strips, and is each handed out whole?
    static constexpr bool g_bOneBlock = (TRows::g_bParsed || ...) && ((!TRows::g_bStrip || TRows::g_bWhole) && ...);

    template <class TValues>
    ProcessingResult<bool> processBorrowed(const TValues& values)
    {
        const Borrowed<TValues> borrowed(*this, values);
        if constexpr (g_bOneBlock) {
            return processBlock();
        } else {
            return this->mainProcess();
        }
    }

    /// What `mainProcess` does where the parsers would hand out the strips as they are.
    ProcessingResult<bool> processBlock()
    {
        unsigned long nbElements = 0;
        (useStrip<TRows>(nbElements), ...);
        if (processor::StepResult step = this->preProcess(); step.status != processor::eStepStatus::eStepSuccess) {
            return ProcessingResult<bool>::failure(step.message);
        }
        processor::DataTypeIdentifierColl types;
        static_cast<void>(getDataTypeIdColl(types)); // never fails
        const processor::KernelFunction kernel = this->selectKernel(types);
        if (kernel == nullptr) {
            return this->failNoKernel(types);
        }
        ProcessingResult<bool> result = (this->*kernel)({nbElements, 1, 0, 0});
        if (result) {
            if (processor::StepResult step = this->postProcess(); step.status != processor::eStepStatus::eStepSuccess) {
                return ProcessingResult<bool>::failure(step.message);
            }
        }
        return result;
    }
    template <class TRow>
    void useStrip(unsigned long& nbElements)
    {
        if constexpr (TRow::g_bStrip) {
            auto& strip = access<TRow>().accessStrip();
            setBlock<TRow>(const_cast<void*>(static_cast<const void*>(strip.accessBuffer())));
            nbElements = strip.getSizeX() * strip.getStripSizeY();
            if constexpr (TRow::Attribute::g_bOutput) {
                m_place = strip.getMemoryPlace();
            }
        }
    }

    std::tuple<Slot<TRows>...> m_slots;
    void* m_blocks[sizeof...(TRows)] = {};
    simd::eMemoryPlace m_place = simd::eMemoryPlace::secondLevelCache;
};

} // namespace orlix::imaproc
