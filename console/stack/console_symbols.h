#pragma once

/// \file
/// What the linker calls the operations of a console at the bottom of the stack. The names of the
/// port are the stack's.

/// Stands behind the declaration of an operation.
#define ORVANE_CONSOLE_SYMBOL(name) __asm__("orvane_console_" #name)
