// ORLIXCORE_API marks what ORLIXCore exports; everything else stays hidden.
#pragma once

#define ORLIXCORE_API __attribute__((visibility("default")))
