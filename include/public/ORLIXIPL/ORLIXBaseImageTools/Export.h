// ORLIXBASEIMAGETOOLS_API marks what ORLIXBaseImageTools exports; everything else stays hidden.
#pragma once

#define ORLIXBASEIMAGETOOLS_API __attribute__((visibility("default")))
