// ORLIXBASEPROCESSING_API marks what ORLIXBaseProcessing exports; everything else stays hidden.
#pragma once

#define ORLIXBASEPROCESSING_API __attribute__((visibility("default")))
