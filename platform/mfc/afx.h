#pragma once

#include "platform/Export.h"
#include "platform/WindowsHeaders.h"
#include "platform/mfc/afxstr.h"

#include <cstddef>
#include <exception>

/// Base of the exceptions that the library raises; thrown and caught by value.
class TS_API CException : public std::exception
{
  public:
    [[nodiscard]] const char* what() const noexcept override;
};

/// Raised where memory cannot be had (E_OUTOFMEMORY).
class TS_API CMemoryException : public CException
{
  public:
    [[nodiscard]] const char* what() const noexcept override;
};

[[noreturn]] TS_API void AfxThrowMemoryException();

/// Raised where something is asked for that there is not, such as a control that a dialog lacks.
class TS_API CNotSupportedException : public CException
{
  public:
    [[nodiscard]] const char* what() const noexcept override;
};

/// Ends a data exchange whose user has been told why.
class TS_API CUserException : public CException
{
  public:
    [[nodiscard]] const char* what() const noexcept override;
};

class CArchive;
class CDumpContext;

/// What a class tells of itself at run time. A class has one record, for as long as its module is loaded.
struct CRuntimeClass
{
    const char* m_lpszClassName;
    std::size_t m_nObjectSize;
    const CRuntimeClass* m_pBaseClass; ///< null for CObject
};

/// Base of classes that carry a run-time class record.
class TS_API CObject
{
  public:
    [[nodiscard]] virtual const CRuntimeClass* GetRuntimeClass() const;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject();
    /// Reads or writes the object's fields; a class without persistence leaves it as it is, doing nothing.
    virtual void Serialize(CArchive& archive);
    // For debugging; nothing here.
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& context) const;

    static const CRuntimeClass classCObject;

  protected:
    CObject() = default;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

/// Gives a class its record. Stands in the class; IMPLEMENT_DYNAMIC stands in its source.
#define DECLARE_DYNAMIC(class_name)                                                                          \
  public:                                                                                                    \
    [[nodiscard]] const CRuntimeClass* GetRuntimeClass() const override;                                     \
    [[nodiscard]] static const CRuntimeClass* GetThisClass()                                                 \
    {                                                                                                        \
        return &class##class_name;                                                                           \
    }                                                                                                        \
    static const CRuntimeClass class##class_name;

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                       \
    const CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class_name),                    \
                                                         RUNTIME_CLASS(base_class_name)};                    \
    const CRuntimeClass* class_name::GetRuntimeClass() const                                                 \
    {                                                                                                        \
        return RUNTIME_CLASS(class_name);                                                                    \
    }
