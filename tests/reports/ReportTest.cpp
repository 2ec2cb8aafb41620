#include "ReportTest.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

namespace support {

namespace print = platform::print;

ReportTest::~ReportTest() { ReportUtilities::EndReports(); }

void ReportTest::Select(const std::vector<Integer>& sections)
{
    std::array<bool, ReportRun::sectionCount> ticked{};
    for (const Integer section : sections)
        ticked.at(static_cast<std::size_t>(section) - 1) = true;
    ReportRun::SelectSections(ticked);
}

const print::Document& ReportTest::Produce(const std::vector<Integer>& sections)
{
    Select(sections);
    ReportRun::PreviewSelectedSections();
    return Printer().Pages();
}

std::vector<ReportTest::Place> ReportTest::PlacesOf(const std::string& text)
{
    std::vector<Place> places;
    for (const print::Page& page : Printer().Pages().pages) {
        for (const print::PlacedText& placed : page.ink.texts) {
            if (placed.text == text) places.push_back({page.number, placed.x, placed.y});
        }
    }
    return places;
}

ReportTest::Place ReportTest::PlaceOf(const std::string& text)
{
    const std::vector<Place> places = PlacesOf(text);
    EXPECT_EQ(places.size(), 1u) << "\"" << text << "\"";
    return places.empty() ? Place() : places.front();
}

std::vector<std::string> ReportTest::LinesOfPage(Long page)
{
    return print::LinesOf(Printer().Pages().pages.at(static_cast<std::size_t>(page) - 1));
}

std::vector<std::string> ReportTest::Lines()
{
    std::vector<std::string> lines;
    for (Long page = 1; page <= PageCount(); ++page) {
        const std::vector<std::string> more = LinesOfPage(page);
        lines.insert(lines.end(), more.begin(), more.end());
    }
    return lines;
}

std::vector<std::string> ReportTest::TenHeadings()
{
    return {"Situation",
            "Decision Summary",
            "Daily Review",
            "Objectives",
            "Safety Issues",
            "Alternatives",
            "Estimated Suppression Costs",
            "Resource Value Losses",
            "Safety Assessment",
            "Decision Tree"};
}

bool ReportTest::HasLine(const std::string& line)
{
    const std::vector<std::string> lines = Lines();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

Long ReportTest::PageCount() { return static_cast<Long>(Printer().Pages().pages.size()); }

std::vector<std::string> ReportTest::DrawnLines(Long page)
{
    std::vector<std::string> lines;
    const auto twips = [](Double value) { return std::to_string(std::llround(value)); };
    for (const print::PlacedLine& line :
         Printer().Pages().pages.at(static_cast<std::size_t>(page) - 1).ink.lines)
        lines.push_back(twips(line.x1) + " " + twips(line.y1) + " " + twips(line.x2) + " " + twips(line.y2));
    return lines;
}

Long ReportTest::CountLog(const std::string& line) const
{
    const std::vector<std::string> lines = LogLines();
    return static_cast<Long>(std::count(lines.begin(), lines.end(), "   " + line));
}

namespace {

std::string FirstDifference(const std::string& approved, const std::string& received)
{
    constexpr std::size_t shown = 200;
    std::istringstream a(approved), b(received);
    std::string left, right;
    for (int line = 1;; ++line) {
        const bool more = static_cast<bool>(std::getline(a, left));
        const bool moreReceived = static_cast<bool>(std::getline(b, right));
        if (!more && !moreReceived) return "the line ends";
        if (more == moreReceived && left == right) continue;
        return "line " + std::to_string(line) +
               "\n  approved: " + (more ? left.substr(0, shown) : "(no more)") +
               "\n  received: " + (moreReceived ? right.substr(0, shown) : "(no more)");
    }
}

} // namespace

void ExpectApproved(const std::string& name, const std::string& text)
{
    const std::string received = BuiltFile("../received/" + name);
    std::filesystem::remove(received);
    const std::string approved = ReadFile(DataFile("../approved/" + name));
    if (approved == text) return;
    std::filesystem::create_directories(std::filesystem::path(received).parent_path());
    WriteFile(received, text);
    ADD_FAILURE() << name << " differs from what was approved, " << FirstDifference(approved, text)
                  << "\n(after a look: tools/approve)";
}

} // namespace support
