#pragma once

#include "platform/richtext/RichDocument.h"

#include <string>

namespace rich {

/// What is wrong with a document that was read; empty if it keeps every promise of RichDocument.h: blocks
/// where some must be, no empty runs or equal neighbours, valid text, lists and levels that are there,
/// bounds.
std::string BrokenPromise(const platform::richtext::RichDocument& document);

} // namespace rich
