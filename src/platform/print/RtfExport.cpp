#include "platform/print/RtfExport.h"

#include "platform/print/RtfFlow.h"
#include "platform/print/SavedFile.h"

namespace platform::print {

std::string RtfOf(const Document& document) { return RtfFlow(document).Write(); }

void WriteRtfFile(const Document& document, const std::string& path)
{
    SavedFile file(path); // a place that cannot be written is told before the work
    const std::string rtf = RtfOf(document);
    file.Write(rtf);
    file.Commit();
}

} // namespace platform::print
