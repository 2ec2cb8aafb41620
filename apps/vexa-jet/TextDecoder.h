#pragma once

#include "vexa-jet/Header.h"

#include <iconv.h>
#include <string>
#include <string_view>

namespace vexa_jet {

/// Makes UTF-8 of a database's texts: in Jet 3 of its code page, in Jet 4 of UTF-16, which may be compressed.
class TextDecoder
{
public:
    /// An unknown code page counts as 1252.
    explicit TextDecoder(const Header& header);
    TextDecoder(const TextDecoder&) = delete;
    TextDecoder& operator=(const TextDecoder&) = delete;
    ~TextDecoder();

    /// Throws Failure for what is no text.
    std::string Decode(std::string_view bytes) const;

private:
    std::string DecodeCodePage(std::string_view bytes) const;

    iconv_t m_codePage = nullptr; // nothing in Jet 4
};

} // namespace vexa_jet
