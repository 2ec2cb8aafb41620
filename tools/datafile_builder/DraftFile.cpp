#include "datafile_builder/DraftFile.h"

#include <system_error>
#include <utility>

namespace datafile_builder {

DraftFile::DraftFile(std::filesystem::path target) : m_target(std::move(target)), m_draft(m_target)
{
    m_draft += ".draft";
    std::filesystem::remove(m_draft);
}

DraftFile::~DraftFile()
{
    std::error_code ignored;
    std::filesystem::remove(m_draft, ignored);
}

void DraftFile::Publish() { std::filesystem::rename(m_draft, m_target); }

} // namespace datafile_builder
