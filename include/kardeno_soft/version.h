/* The version of these headers, and of the library that came with them. The first number grows when a host has to be
   changed, the second when there is something new for hosts, and the third when the library itself became better. */
#pragma once

#define KARDENO_VERSION_MAJOR 1 /* the first of the three numbers */
#define KARDENO_VERSION_MINOR 0 /* the second */
#define KARDENO_VERSION_PATCH 0 /* the third */

/* The three numbers as text. */
#define KARDENO_VERSION "1.0.0"
/* The same as a number that can be compared: 10203 is version 1.2.3. */
#define KARDENO_VERSION_NUMBER (KARDENO_VERSION_MAJOR * 10000 + KARDENO_VERSION_MINOR * 100 + KARDENO_VERSION_PATCH)
