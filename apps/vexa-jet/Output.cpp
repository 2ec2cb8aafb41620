#include "vexa-jet/Output.h"

#include "vexa-jet/Failure.h"

#include <bit>
#include <cstdio>

namespace vexa_jet {

using platform::jet::CellMark;
using platform::jet::Record;

static_assert(std::endian::native == std::endian::little, "numbers are written as they stand in memory");

void Output::Add(const void* bytes, std::size_t size)
{
    m_record.append(static_cast<const char*>(bytes), size);
}

void Output::Name(const std::string& name)
{
    if (name.empty() || name.size() > platform::jet::kLongestName) {
        throw Failure("a name is too long, or empty");
    }
    const auto size = static_cast<std::uint16_t>(name.size());
    Add(&size, sizeof size);
    Raw(name);
}

void Output::Boolean(bool value) { Mark(value ? CellMark::True : CellMark::False); }

void Output::Whole(std::int64_t value)
{
    Mark(CellMark::Whole);
    Add(&value, sizeof value);
}

void Output::Money(std::int64_t tenThousandths)
{
    Mark(CellMark::Money);
    Add(&tenThousandths, sizeof tenThousandths);
}

void Output::Floating(double value)
{
    Mark(CellMark::Floating);
    Add(&value, sizeof value);
}

void Output::Text(std::string_view text)
{
    if (text.size() > platform::jet::kLongestText) {
        throw Failure("a text is too long");
    }
    Mark(CellMark::Text);
    Number32(static_cast<std::uint32_t>(text.size()));
    Raw(text);
}

void Output::EndRecord()
{
    if (m_record.size() > m_left) {
        m_left = 0;
        throw Failure("the tables come to more than such a file can hold");
    }
    m_left -= m_record.size();
    if (std::fwrite(m_record.data(), 1, m_record.size(), stdout) != m_record.size()) {
        throw Failure("the tables cannot be written");
    }
    m_record.clear();
}

void Output::Fail(const std::string& cause)
{
    m_record.clear();
    Begin(Record::Failure);
    Number32(static_cast<std::uint32_t>(cause.size()));
    Raw(cause);
    std::fwrite(m_record.data(), 1, m_record.size(), stdout);
    std::fflush(stdout);
}

void Output::Flush()
{
    if (std::fflush(stdout) != 0) {
        throw Failure("the tables cannot be written");
    }
}

} // namespace vexa_jet
