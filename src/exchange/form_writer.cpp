// The memory that writers share.
#include "exchange/form_writer.h"

namespace
{
// Of each of the two, in bytes.
constexpr std::size_t s_nKept = 1024 * 1024;

std::vector<COpenForm> s_open;
std::string s_text;
}  // namespace

CWriterMemory::CWriterMemory() : m_open(s_open), m_text(s_text) {}

CWriterMemory::~CWriterMemory()
{
    m_open.clear();
    if (m_open.capacity() * sizeof(COpenForm) > s_nKept)
        m_open.shrink_to_fit();
    m_text.clear();
    if (m_text.capacity() > s_nKept)
        m_text.shrink_to_fit();
}
