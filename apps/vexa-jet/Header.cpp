#include "vexa-jet/Header.h"

#include "vexa-jet/Failure.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <string>
#include <utility>

namespace vexa_jet {

namespace {

constexpr std::size_t kHeaderSize = 256;
using Page = std::array<unsigned char, kHeaderSize>;

constexpr std::size_t kVersion = 0x14;
constexpr std::size_t kHidden = 0x18; // from here on the page is encoded
constexpr std::size_t kCodePage = 0x3C;
constexpr std::size_t kPassword = 0x42;
constexpr std::size_t kDate = 0x72; // of the making, a mask on the password in Jet 4
constexpr std::array<unsigned char, 4> kHeaderKey = {0xC7, 0xDA, 0x39, 0x6B};

/// RC4 with the key that every header is encoded with.
void Decode(unsigned char* bytes, std::size_t size)
{
    std::array<unsigned char, 256> state{};
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<std::uint8_t>(j + state[i] + kHeaderKey[i % kHeaderKey.size()]);
        std::swap(state[i], state[j]);
    }
    std::uint8_t i = 0;
    j = 0;
    for (std::size_t place = 0; place < size; ++place) {
        i = static_cast<std::uint8_t>(i + 1);
        j = static_cast<std::uint8_t>(j + state[i]);
        std::swap(state[i], state[j]);
        bytes[place] ^= state[static_cast<std::uint8_t>(state[i] + state[j])];
    }
}

std::array<unsigned char, 4> PasswordMask(const Page& page)
{
    double date = 0;
    std::memcpy(&date, page.data() + kDate, sizeof date);
    constexpr double kBound = 2147483648.0;
    const auto day = date > -kBound && date < kBound ? static_cast<std::int32_t>(date) : 0;
    std::array<unsigned char, 4> mask{};
    std::memcpy(mask.data(), &day, sizeof day);
    return mask;
}

bool HasPassword(const Page& page, bool isJet4)
{
    constexpr std::size_t kSize3 = 20;
    constexpr std::size_t kSize4 = 40;
    const auto mask = isJet4 ? PasswordMask(page) : std::array<unsigned char, 4>{};
    for (std::size_t i = 0; i < (isJet4 ? kSize4 : kSize3); ++i) {
        if (page[kPassword + i] != mask[i % mask.size()]) {
            return true;
        }
    }
    return false;
}

} // namespace

Header ReadHeader(int file, std::uint64_t fileSize)
{
    Page page{};
    if (::pread(file, page.data(), page.size(), 0) != static_cast<ssize_t>(page.size())) {
        throw Failure("the file has no whole first page");
    }
    constexpr const char* kEngine = "Standard Jet DB";
    if (std::memcmp(page.data() + 4, kEngine, std::strlen(kEngine)) != 0 || page[kVersion] > 1) {
        throw Failure("the database is of another version than Jet 3 and Jet 4");
    }
    Header header;
    header.isJet4 = page[kVersion] == 1;
    constexpr std::uint64_t kPage3 = 2048;
    constexpr std::uint64_t kPage4 = 4096;
    if (fileSize % (header.isJet4 ? kPage4 : kPage3) != 0) {
        throw Failure("the file ends in the middle of a page");
    }
    constexpr std::size_t kEncoded3 = 126;
    constexpr std::size_t kEncoded4 = 128;
    Decode(page.data() + kHidden, header.isJet4 ? kEncoded4 : kEncoded3);
    if (HasPassword(page, header.isJet4)) {
        throw Failure("the database has a password");
    }
    header.codePage = static_cast<unsigned>(page[kCodePage] | (page[kCodePage + 1] << 8));
    return header;
}

} // namespace vexa_jet
