// ORLIXBASEDATA_API marks what ORLIXBaseData exports; everything else stays hidden.
#pragma once

#define ORLIXBASEDATA_API __attribute__((visibility("default")))
