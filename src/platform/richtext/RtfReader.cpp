#include "platform/richtext/RtfReader.h"

#include "platform/richtext/Parser.h"

namespace platform::richtext {

namespace {

RichDocument Read(std::string_view text, Source source, reader::Wanted wanted)
{
    text = text.substr(0, maxRtfBytes);
    if (!IsRtf(text)) return PlainDocument(text);
    reader::Parser parser(source, wanted);
    parser.ReadBody(text);
    return parser.Finish();
}

} // namespace

bool IsRtf(std::string_view text) { return text.starts_with("{\\rtf"); }

RichDocument ReadRtf(std::string_view text, Source source)
{
    return Read(text, source, reader::Wanted::Everything);
}

RichDocument ReadParts(const std::vector<TextPart>& parts)
{
    reader::Parser parser(Source::Body, reader::Wanted::Everything);
    for (const TextPart& part : parts) {
        const std::string_view text = part.text.substr(0, maxPartBytes);
        part.kind == TextPart::Kind::Rich ? parser.ReadRichPart(text) : parser.ReadPlainPart(text);
    }
    return parser.Finish();
}

RichDocument PlainDocument(std::string_view text)
{
    if (text.ends_with('\n')) text.remove_suffix(1);
    if (text.ends_with('\r')) text.remove_suffix(1);
    return ReadParts({{TextPart::Kind::Plain, text}});
}

std::string RtfToPlainText(std::string_view text, Source source)
{
    return PlainText(Read(text, source, reader::Wanted::TextOnly));
}

} // namespace platform::richtext
