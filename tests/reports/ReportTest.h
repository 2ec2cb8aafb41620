#pragma once

#include "platform/print/PrintControl.h"
#include "reports/ReportRun.h"
#include "reports/ReportUtilities.h"
#include "support/TestSession.h"

#include <optional>
#include <string>
#include <vector>

namespace support {

/// A session of its own for each test, also of the reports, and a look at the pages that they produce.
class ReportTest : public TestSession
{
protected:
    ~ReportTest() override;

    static platform::print::PrintControl& Printer() { return ReportUtilities::VSPrinter1(); }
    static void Select(const std::vector<Integer>& sections);
    /// Produces these sections for the preview.
    static const platform::print::Document& Produce(const std::vector<Integer>& sections);
    static void UseA4() { Printer().SetPaper(11906.0, 16838.0); }

    /// Where a stretch of text stands: its page, from 1, its left end and its baseline.
    struct Place
    {
        Long page = 0;
        Double x = 0.0, y = 0.0;

        friend bool operator==(const Place&, const Place&) = default;
    };
    /// The texts that are this one, page by page and in order of drawing.
    static std::vector<Place> PlacesOf(const std::string& text);
    /// Of a text that stands once; fails the test otherwise.
    static Place PlaceOf(const std::string& text);
    /// The words of a page, from 1, line by line.
    static std::vector<std::string> LinesOfPage(Long page);
    /// Of all pages.
    static std::vector<std::string> Lines();
    /// Of the ten sections, in their order.
    static std::vector<std::string> TenHeadings();
    static bool HasLine(const std::string& line);
    static Long PageCount();
    /// The lines drawn on a page, from 1, as "x1 y1 x2 y2".
    static std::vector<std::string> DrawnLines(Long page);
    /// How many of the log's lines are this one.
    Long CountLog(const std::string& line) const;
};

/// Holds a text against tests/approved/NAME. One that differs is written to "received" beside the built
/// programs, from where tools/approve takes it after a look.
void ExpectApproved(const std::string& name, const std::string& text);

} // namespace support
