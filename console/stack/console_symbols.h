#pragma once

/// \file
/// The names for the linker of the operations of a console at the bottom of the stack. The
/// plain names are those of the stack.

/// Follows the declaration of an operation.
#define ORVANE_CONSOLE_SYMBOL(name) __asm__("orvane_console_" #name)
