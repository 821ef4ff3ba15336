// The frame of level-3 processors that walk strips: one parser per strip attribute, kernels by element type.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/KernelScaffold.h"
#include "ORLIXIPL/ORLIXImageProcessing/ImageBufferTypeIdentifier.h"
#include "ORLIXIPL/ORLIXImageProcessing/Parser/StripParserInfo.h"

namespace orlix::imaproc {

/// The strip attributes, one or two, whose element types choose the kernel.
template <class... TAttributes>
struct TypedBy
{};

namespace details {

template <class TAttribute>
using StripBaseOf = std::conditional_t<TAttribute::g_bOutput, BaseOutputYStrip2dAttribute, BaseInputYStrip2dAttribute>;

/// The place for the parser of one attribute; empty for an attribute that is no strip.
template <class TMode, class TAttribute, bool bStrip = std::is_base_of_v<BaseYStrip2dAttribute, TAttribute>>
struct ParserSlot
{
    static constexpr bool g_bStrip = false;
};
template <class TMode, class TAttribute>
struct ParserSlot<TMode, TAttribute, true>
{
    static constexpr bool g_bStrip = true;
    using Base = StripBaseOf<TAttribute>;
    boost::shared_ptr<typename TMode::template BaseParser<Base>> parser; ///< kept for the next strip of its type
    image::eImageBufferType type;
};

} // namespace details

/// `TMode` is how strips are handed to kernels; parsers come in the order of the attributes. A strip attribute that is
/// not set has no parser.
template <class TDerived, class TLibrary, class TMode, class TTypedBy, class... TAttributes>
class StripAlgorithm;

template <class TDerived, class TLibrary, class TMode, class... TTyped, class... TAttributes>
class StripAlgorithm<TDerived, TLibrary, TMode, TypedBy<TTyped...>, TAttributes...>
    : public processor::KernelScaffold<TDerived, TLibrary, TAttributes...>
{
protected:
    /// First element of the current block of a strip attribute's parser; const for an input.
    template <class TAttribute>
    auto accessBlock() const
    {
        return std::get<details::ParserSlot<TMode, TAttribute>>(m_slots).parser->accessBuffer();
    }

    ProcessingResult<bool> getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const override
    {
        types.init(ImageBufferTypeIdentifier(this->template accessAttribute<TTyped>()->getImageBufferType())...);
        return true;
    }

    ProcessingResult<bool> initDataParserColl(processor::DataParserVector& parsers) override
    {
        unsigned long nbParsers = 0;
        (createParser<TAttributes>(parsers, nbParsers), ...);
        parsers.resize(nbParsers);
        if constexpr (TMode::g_bJoinsLines) {
            const bool bTouch = (doLinesTouch<TAttributes>() && ...);
            (joinLines<TAttributes>(bTouch), ...);
        }
        return true;
    }
    void clearDataParserColl() override { (clearParser<TAttributes>(), ...); }

private:
    template <class TAttribute>
    void createParser(processor::DataParserVector& parsers, unsigned long& nbParsers)
    {
        using Slot = details::ParserSlot<TMode, TAttribute>;
        if constexpr (Slot::g_bStrip) {
            const TAttribute& attribute = *this->template accessAttribute<TAttribute>();
            if (!attribute.isHeld()) {
                return;
            }
            Slot& slot = std::get<Slot>(m_slots);
            const image::eImageBufferType type = attribute.getImageBufferType();
            if (slot.parser && slot.type == type) {
                slot.parser->init(attribute.getStorage());
            } else {
                slot.parser = StripParserInfo<TMode, typename Slot::Base, typename Slot::Base>::createParser(attribute);
                slot.type = type;
            }
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
    template <class TAttribute>
    bool doLinesTouch() const
    {
        using Slot = details::ParserSlot<TMode, TAttribute>;
        if constexpr (Slot::g_bStrip) {
            const auto& parser = std::get<Slot>(m_slots).parser;
            return !parser || !this->template accessAttribute<TAttribute>()->isHeld() || parser->doLinesTouch();
        } else {
            return true;
        }
    }
    template <class TAttribute>
    void joinLines(bool bJoined)
    {
        using Slot = details::ParserSlot<TMode, TAttribute>;
        if constexpr (Slot::g_bStrip) {
            if (const auto& parser = std::get<Slot>(m_slots).parser) {
                parser->joinLines(bJoined);
            }
        }
    }
    template <class TAttribute>
    void clearParser()
    {
        if constexpr (details::ParserSlot<TMode, TAttribute>::g_bStrip) {
            auto& parser = std::get<details::ParserSlot<TMode, TAttribute>>(m_slots).parser;
            if (parser) {
                parser->clear();
            }
        }
    }

    std::tuple<details::ParserSlot<TMode, TAttributes>...> m_slots;
};

} // namespace orlix::imaproc
