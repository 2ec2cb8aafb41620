#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace platform::richtext;

namespace {

void Check(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

RichDocument CheckedDocument(RichDocument document)
{
    const std::string broken = rich::BrokenPromise(document);
    Check(broken.empty(), broken.c_str());
    return document;
}

void CheckRead(std::string_view text, Source source)
{
    const RichDocument document = CheckedDocument(ReadRtf(text, source));
    Check(RtfToPlainText(text, source) == PlainText(document), "the two ways to the text differ");
    const std::string written = WriteRtf(document);
    Check(WriteRtf(CheckedDocument(ReadRtf(written))) == written, "saving twice gives another text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CheckRead(text, Source::Body);
    CheckRead(text, Source::Bytes);
    const std::string_view half = text.substr(0, size / 2);
    CheckedDocument(ReadParts({{TextPart::Kind::Plain, "1  "},
                               {TextPart::Kind::Rich, text},
                               {TextPart::Kind::Plain, half},
                               {TextPart::Kind::Rich, half}}));
    return 0;
}
