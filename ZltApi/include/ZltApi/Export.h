// Symbol visibility of the camera API's shared library.
#pragma once

#if defined(ZLTAPI_BUILDING)
#define ZLTAPI_EXPORT __attribute__((visibility("default")))
#else
#define ZLTAPI_EXPORT
#endif
