#include "platform/mfc/afx.h"

const char* CException::what() const noexcept
{
    return "CException";
}

const char* CMemoryException::what() const noexcept
{
    return "out of memory";
}

void AfxThrowMemoryException()
{
    throw CMemoryException();
}
