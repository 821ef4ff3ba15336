// ORLIXMATH_API marks what ORLIXMath exports; everything else stays hidden.
#pragma once

#define ORLIXMATH_API __attribute__((visibility("default")))
