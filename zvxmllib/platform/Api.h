// Export macro of the shared library.
#pragma once

// Everything is hidden unless it carries this mark. The same mark serves the build and the use of the
// library: ELF needs no import declaration.
#define ZV_API __attribute__((visibility("default")))
