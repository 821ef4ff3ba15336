// The whole public face of ORLIXIPLUtility.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLog.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ORLIXIPLUtilityLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/OutputInitializerLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/ProcessorLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/Logger/RuleLogMessages.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtilityException.h"
#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/BuildInitializerUtils.h"
<<<<<<< HEAD
#include "ORLIXIPL/ORLIXIPLUtility/OutputInitializer/SliceInitializerUtils.h"
=======
>>>>>>> main
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BasicThresholdImg/BasicThresholdImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines2dImg/BuildLines2dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/BuildLines3dImg/BuildLines3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CompareImg/CompareImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/ConvertImg/ConvertImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/CopyImg/CopyImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/EraseImg/EraseImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/GetSlice3dImg/GetSlice3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImg.h"
#include "ORLIXIPL/ORLIXIPLUtility/Processor/PutSlice3dImg/PutSlice3dImgLvl1.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceGeometry.h"
#include "ORLIXIPL/ORLIXIPLUtility/Rule/SliceRuleUtils.h"
