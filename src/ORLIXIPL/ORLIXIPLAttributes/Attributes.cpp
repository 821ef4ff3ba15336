// Emits the attribute classes' virtual tables here, once for all libraries that use them.
#include "ORLIXIPL/ORLIXIPLAttributes/ORLIXIPLAttributes.h"

namespace orlix::processor {

template class NamedAttribute<imaproc::attr::InImg, imaproc::BaseInputImageAttribute>;
template class NamedAttribute<imaproc::attr::OutImg, imaproc::BaseOutputImageAttribute>;
template class NamedAttribute<imaproc::attr::InSubImg2d, imaproc::BaseInputImageAttribute>;
template class NamedAttribute<imaproc::attr::InYStrip2d, imaproc::BaseInputYStrip2dAttribute>;
template class NamedAttribute<imaproc::attr::OutYStrip2d, imaproc::BaseOutputYStrip2dAttribute>;

template class NamedAttribute<imaproc::attr::InImg1, imaproc::BaseInputImageAttribute>;
template class NamedAttribute<imaproc::attr::InImg2, imaproc::BaseInputImageAttribute>;
template class NamedAttribute<imaproc::attr::InSubImg2d1, imaproc::BaseInputImageAttribute>;
template class NamedAttribute<imaproc::attr::InSubImg2d2, imaproc::BaseInputImageAttribute>;
template class NamedAttribute<imaproc::attr::InYStrip2d1, imaproc::BaseInputYStrip2dAttribute>;
template class NamedAttribute<imaproc::attr::InYStrip2d2, imaproc::BaseInputYStrip2dAttribute>;
template class NamedAttribute<imaproc::attr::InOptImgComparisonTolerance,
                              BaseInputOptionalDataItemAttribute<imaproc::attr::ImgComparisonTolerance>>;
template class NamedAttribute<imaproc::attr::InImgComparisonTolerance,
                              BaseInputMandatoryDataItemAttribute<imaproc::attr::ImgComparisonTolerance>>;
template class NamedAttribute<imaproc::attr::OutCompareResult,
                              BaseOutputDataItemAttribute<imaproc::attr::CompareResult>>;

} // namespace orlix::processor
