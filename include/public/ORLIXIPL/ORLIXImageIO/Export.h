// ORLIXIMAGEIO_API marks what ORLIXImageIO exports; everything else stays hidden.
#pragma once

#define ORLIXIMAGEIO_API __attribute__((visibility("default")))
