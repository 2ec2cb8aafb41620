#pragma once

#include "platform/richtext/RichDocument.h"

#include <cstdint>

namespace rich {

/// A document in which every look, list, table and picture that the model knows may stand; the same one for
/// the same seed. It keeps the promises of RichDocument.h and ends in a paragraph.
platform::richtext::RichDocument RandomDocument(std::uint32_t seed);

} // namespace rich
