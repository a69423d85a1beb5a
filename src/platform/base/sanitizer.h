// Whether this build checks addresses: memory must then not be kept back for reuse.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define MIVORA_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MIVORA_ADDRESS_SANITIZER 1
#endif
#endif

#ifdef MIVORA_ADDRESS_SANITIZER
constexpr bool g_bAddressSanitizer = true;
#else
constexpr bool g_bAddressSanitizer = false;
#endif
