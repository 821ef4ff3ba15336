// ORLIXIMAGEPROCESSING_API marks what ORLIXImageProcessing exports; everything else stays hidden.
#pragma once

#define ORLIXIMAGEPROCESSING_API __attribute__((visibility("default")))
