#include "platform/richtext/MoveLists.h"

#include <algorithm>
#include <iterator>

namespace platform::richtext {

void MoveLists(RichDocument& from, std::vector<RichList>& to)
{
    const auto before = static_cast<Long>(to.size());
    if (from.lists.empty()) return;
    ForEachParagraph(from.blocks, [before](Paragraph& paragraph) {
        if (paragraph.format.list > 0) paragraph.format.list += before;
    });
    std::move(from.lists.begin(), from.lists.end(), std::back_inserter(to));
    from.lists.clear();
}

} // namespace platform::richtext
