#include "worksheets/DecisionDescription.h"

#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"

#include <initializer_list>

namespace richtext = platform::richtext;

namespace DecisionDescription {

namespace {

enum OutcomeIndex : Long { Target = 1, Fallback = 2 };

/// A body, rich or plain, with lines of their own ahead of it, which take nothing from its first paragraph.
std::string Below(std::initializer_list<const char*> lines, const std::string& body)
{
    richtext::RichDocument document = richtext::ReadRtf(body);
    std::vector<richtext::Block> ahead;
    for (const char* line : lines) {
        richtext::Paragraph paragraph;
        richtext::AppendText(paragraph, line, {});
        ahead.push_back({paragraph});
    }
    document.blocks.insert(document.blocks.begin(), ahead.begin(), ahead.end());
    return richtext::WriteRtf(document);
}

/// Rich texts that follow one another, as one with one set of fonts, colours and lists.
std::string Joined(const std::string& bodies) { return richtext::WriteRtf(richtext::ReadRtf(bodies)); }

std::string Description(c51Alternative& alternative, OutcomeIndex index)
{
    return alternative.Outcome(index)->Description();
}

} // namespace

std::string WithoutFallback(c51Alternative& alternative)
{
    return Joined(Below({}, alternative.Body()) + Below({""}, Description(alternative, Target)));
}

std::string WithFallback(c51Alternative& alternative)
{
    const std::string fallback = Below({"Fallback:", ""}, Description(alternative, Fallback));
    const std::string target = Below({"", "Target:", ""}, Description(alternative, Target));
    const std::string whole = Joined(Below({}, alternative.Body()) + target + fallback);
    return Below({"This alternative includes a Fallback outcome.", ""}, whole);
}

} // namespace DecisionDescription
