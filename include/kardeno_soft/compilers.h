/* What compilers and languages say in different words: the calling convention, the export of a function, and an
   assertion at compile time. The headers take every C from C89 with <stdint.h> on and every C++ from C++98 on. */
#pragma once

#include <stddef.h>

#if (defined(__SIZEOF_POINTER__) && __SIZEOF_POINTER__ != 4 && __SIZEOF_POINTER__ != 8)                                \
    || (defined(__BYTE_ORDER__) && __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__)
#error "kardeno_soft needs pointers of 32 or 64 bits and little-endian numbers: its records would not fit here."
#endif

/* The C calling convention, in which the caller pops the arguments. It stands on every exported function and on every
   function of the host, so that no compiler switch changes it. Only 32-bit x86 has more than one. */
#if defined(_MSC_VER) && defined(_M_IX86)
#define KARDENO_CALL __cdecl
#elif defined(__GNUC__) && defined(__i386__)
#define KARDENO_CALL __attribute__((__cdecl__))
#else
#define KARDENO_CALL
#endif

/* Declares a record. In C++ that must not be a typedef, which would take a host's own record of the same name. */
#ifdef __cplusplus
#define KARDENO_RECORD(name) struct name
#else
#define KARDENO_RECORD(name) typedef struct name name
#endif

#if defined(_WIN32) && defined(KARDENO_BUILDING_LIBRARY)
#define KARDENO_EXPORT __declspec(dllexport)
#elif defined(__GNUC__) && !defined(_WIN32)
#define KARDENO_EXPORT __attribute__((visibility("default")))
#else
#define KARDENO_EXPORT
#endif

/* Asserts a condition at compile time. Languages without such an assertion get an array that would have no size. */
#if defined(__cplusplus) && __cplusplus >= 201103L
#define KARDENO_HOLDS(condition, sentence) static_assert(condition, sentence)
#elif !defined(__cplusplus) && defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define KARDENO_HOLDS(condition, sentence) _Static_assert(condition, sentence)
#else
#define KARDENO_HOLDS(condition, sentence) extern char kardenoHolds[(condition) ? 1 : -1]
#endif

/* These assert the place of a field and the size of a record, in bytes, with 32-bit and with 64-bit pointers. */
#define KARDENO_OFFSET(record, field, at32, at64)                                                                      \
    KARDENO_HOLDS(offsetof(record, field) == (sizeof(void*) == 4 ? (at32) : (at64)),                                   \
                  "kardeno_soft: a field is not where the library expects it")
#define KARDENO_SIZE(record, size32, size64)                                                                           \
    KARDENO_HOLDS(sizeof(record) == (sizeof(void*) == 4 ? (size32) : (size64)),                                        \
                  "kardeno_soft: a record has not the size that the library expects")
