#include "support/TempFolder.h"
#include "vexa-jet/Failure.h"
#include "vexa-jet/Header.h"
#include "vexa-jet/TextDecoder.h"
#include "vexa-jet/Values.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>

namespace {

using vexa_jet::Failure;
using vexa_jet::Header;
using namespace std::string_literals;

std::string Decode4(const std::string& bytes) { return vexa_jet::TextDecoder(Header{true, 0}).Decode(bytes); }

std::string Decode3(unsigned codePage, const std::string& bytes)
{
    return vexa_jet::TextDecoder(Header{false, codePage}).Decode(bytes);
}

/// The header of a Jet 3 file of the tests' data with one byte changed.
Header HeaderWith(std::size_t place, char change)
{
    const support::TempFolder folder;
    std::string bytes = support::ReadFile(support::DataFile("legacy/3.00.00-tundra.jet3.qel"));
    bytes[place] = static_cast<char>(bytes[place] ^ change);
    support::WriteFile(folder.File("x"), bytes);
    const int file = ::open(folder.File("x").c_str(), O_RDONLY);
    try {
        const Header header = vexa_jet::ReadHeader(file, bytes.size());
        ::close(file);
        return header;
    } catch (...) {
        ::close(file);
        throw;
    }
}

} // namespace

TEST(JetTexts, Jet4_IsUtf16OrCompressed)
{
    EXPECT_EQ(Decode4(""), "");
    EXPECT_EQ(Decode4("a\0\xE9\0\xAC\x20"s), "a\u00e9\u20ac");
    EXPECT_EQ(Decode4("\xFF\xFE"s), "");
    EXPECT_EQ(Decode4("\xFF\xFE"s + "abc\xE9"), "abc\u00e9");
    EXPECT_EQ(Decode4("\xFF\xFE"s + "ab\0\xAC\x20\x53\x01\0c"s), "ab\u20ac\u0153c");
    EXPECT_EQ(Decode4("\x3D\xD8\x25\xDD"s), "\U0001F525");
}

TEST(JetTexts, Jet4HalfAPair_BecomesTheSignForIt)
{
    EXPECT_EQ(Decode4("\x3D\xD8"s), "\uFFFD");
    EXPECT_EQ(Decode4("\x25\xDD"s + "a\0"s), "\uFFFDa");
    EXPECT_EQ(Decode4("\x3D\xD8\x3D\xD8\x25\xDD"s), "\uFFFD\U0001F525");
}

TEST(JetTexts, Jet4HalfACharacter_IsNoText)
{
    EXPECT_THROW(Decode4("a"), Failure);
    EXPECT_THROW(Decode4("\xFF\xFE\0a"s), Failure);
}

TEST(JetTexts, Jet3_IsOfItsCodePage)
{
    EXPECT_EQ(Decode3(1252, "Mu\xF1oz \x80 \x9C"), "Mu\u00f1oz \u20ac \u0153");
    EXPECT_EQ(Decode3(1250, "\xB3\xF3"), "\u0142\u00f3");
    EXPECT_EQ(Decode3(1251, "\xCF\xEE"), "\u041f\u043e");
    EXPECT_EQ(Decode3(932, "\x89\xCE"), "\u706b");
    EXPECT_EQ(Decode3(54321, "\xF1"), "\u00f1") << "an unknown one counts as 1252";
    EXPECT_EQ(Decode3(1252, "a\x81z\x90"), "a\u0081z\u0090") << "places that are not given away";
    EXPECT_EQ(Decode3(1252, std::string(10000, '\x80')).size(), 30000U);
}

TEST(JetValues, Dates)
{
    EXPECT_EQ(vexa_jet::DateText(0.0), "1899-12-30 00:00:00");
    EXPECT_EQ(vexa_jet::DateText(37106.270833333336), "2001-08-03 06:30:00");
    EXPECT_EQ(vexa_jet::DateText(37106.99999999), "2001-08-04 00:00:00");
    EXPECT_EQ(vexa_jet::DateText(-1.25), "1899-12-29 06:00:00") << "the fraction is the time also here";
    EXPECT_EQ(vexa_jet::DateText(2958465.0), "9999-12-31 00:00:00");
    EXPECT_THROW(vexa_jet::DateText(1e9), Failure);
    EXPECT_THROW(vexa_jet::DateText(std::nan("")), Failure);
    EXPECT_EQ(vexa_jet::HexText("\x01\xAF"), "01AF");
}

TEST(JetHeader, Version_CodePageAndPassword)
{
    constexpr std::size_t kEngine = 8;
    constexpr std::size_t kVersion = 0x14;
    constexpr std::size_t kPassword = 0x42;
    EXPECT_FALSE(HeaderWith(0, 0).isJet4);
    EXPECT_EQ(HeaderWith(0, 0).codePage, 1252U);
    EXPECT_THROW(HeaderWith(kVersion, 2), Failure);
    EXPECT_THROW(HeaderWith(kEngine, 1), Failure);
    EXPECT_THROW(HeaderWith(kPassword, 'a'), Failure);
    EXPECT_THROW(HeaderWith(kPassword + 19, 'a'), Failure);
}
