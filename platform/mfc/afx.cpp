#include "platform/mfc/afx.h"

const char* CException::what() const noexcept
{
    return "CException";
}

const char* CMemoryException::what() const noexcept
{
    return "out of memory";
}

const char* CNotSupportedException::what() const noexcept
{
    return "not supported";
}

const char* CUserException::what() const noexcept
{
    return "ended for a reason that the user knows";
}

void AfxThrowMemoryException()
{
    throw CMemoryException();
}

const CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), nullptr};

const CRuntimeClass* CObject::GetRuntimeClass() const
{
    return RUNTIME_CLASS(CObject);
}

CObject::~CObject() = default;

void CObject::Serialize(CArchive&)
{
}

void CObject::AssertValid() const
{
}

void CObject::Dump(CDumpContext&) const
{
}
