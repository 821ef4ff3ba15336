// ORLIXUTIL_API marks what ORLIXUtil exports; everything else stays hidden.
#pragma once

#define ORLIXUTIL_API __attribute__((visibility("default")))
