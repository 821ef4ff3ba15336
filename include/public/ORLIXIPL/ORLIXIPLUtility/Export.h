// ORLIXIPLUTILITY_API marks what ORLIXIPLUtility exports; everything else stays hidden.
#pragma once

#define ORLIXIPLUTILITY_API __attribute__((visibility("default")))
