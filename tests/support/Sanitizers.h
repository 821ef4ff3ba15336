// Which sanitizer a test is built with, for what can't be tested under it. GCC and Clang tell it in different ways.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define ORLIX_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORLIX_ADDRESS_SANITIZER 1
#endif
#endif

#if defined(__SANITIZE_THREAD__)
#define ORLIX_THREAD_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define ORLIX_THREAD_SANITIZER 1
#endif
#endif
