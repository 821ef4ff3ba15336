#include "ORLIXIPL/ORLIXImageProcessing/Parser/StripParserInfo.h"

#include <boost/make_shared.hpp>

namespace orlix::imaproc {

template <class TMode, class TAttribute, class TStripAttribute>
boost::shared_ptr<typename StripParserInfo<TMode, TAttribute, TStripAttribute>::BaseParser>
StripParserInfo<TMode, TAttribute, TStripAttribute>::createParser(const TStripAttribute& attribute)
{
    using Types = details::ParserTypes<typename TMode::ParserMode, TAttribute>;
    boost::shared_ptr<BaseParser> parser;
    image::visitStorageType(attribute.getImageBufferType(), [&]<class T>() {
        parser = boost::make_shared<typename Types::template Parser<T>>();
        parser->init(attribute.accessStrip());
    });
    return parser;
}

#define ORLIX_PARSERS_BY_MODE(mode, attribute) template struct StripParserInfo<mode, attribute, attribute>;
#define ORLIX_PARSERS_BY_LINE(attribute)                                                                               \
    ORLIX_PARSERS_BY_MODE(LineStripParserMode, attribute)                                                              \
    ORLIX_PARSERS_BY_MODE(JoinedLineStripParserMode, attribute)
#define ORLIX_PARSERS(attribute)                                                                                       \
    ORLIX_PARSERS_BY_MODE(RawStripParserMode, attribute)                                                               \
    ORLIX_PARSERS_BY_LINE(attribute)

ORLIX_PARSERS(BaseInputYStrip2dAttribute)
ORLIX_PARSERS(BaseOutputYStrip2dAttribute)
ORLIX_PARSERS(BaseInputZStrip3dAttribute)
ORLIX_PARSERS(BaseOutputZStrip3dAttribute)
ORLIX_PARSERS(BaseInOutZStrip3dAttribute)
ORLIX_PARSERS_BY_LINE(BaseInputYStrip2dWithKernelAttribute)
ORLIX_PARSERS_BY_LINE(BaseInputZStrip3dWithKernelAttribute)

} // namespace orlix::imaproc
