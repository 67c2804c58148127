#include "PositionVariables.h"

#include <locale>

PositionVariables::PositionVariables()
{
    // The host may have set a locale that groups digits.
    m_stream.imbue(std::locale::classic());
}

std::string PositionVariables::values(int position)
{
    m_stream.str(std::string());
    m_stream << "pos" << position;
    return m_stream.str();
}

std::string PositionVariables::name(int position)
{
    m_stream.str(std::string());
    m_stream << "pos" << position << "_name";
    return m_stream.str();
}
