#pragma once

#include "platform/WindowsHeaders.h"

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>

namespace ts::standin
{

/// How a failure reaches the client: as the call's own HRESULT, or as DISP_E_EXCEPTION with an EXCEPINFO
/// whose scode it is, which is how Outlook reports its own errors.
enum class ErrorForm
{
    Direct,
    Exception
};

enum class Moment
{
    BeforeWork,
    AfterWork
};

/// Calls are counted from 1 = the next one. Looking up a name or another interface is no call.
struct CallFailure
{
    long call = 1;
    HRESULT error = E_FAIL;
    ErrorForm form = ErrorForm::Exception;
    Moment moment = Moment::BeforeWork;
    bool andAllLater = false;
};

struct Death
{
    long call = 1;
    Moment moment = Moment::BeforeWork;
};

/// What is to go wrong.
struct Faults
{
    std::optional<HRESULT> refuseActivation = std::nullopt;
    std::optional<CallFailure> failure = std::nullopt;
    /// The server's process ends. Inside the test's own process the stand-in answers from then on what calls
    /// to an ended server answer, and refuses activation.
    std::optional<Death> death = std::nullopt;
    std::chrono::milliseconds delayPerCall{0};
    /// "Appointment.Subject": looking up this member's dispatch id fails.
    std::wstring unknownMember = {};
    /// "Appointment" or "Folder": objects of this kind do not answer to their own interface id.
    std::wstring withoutInterface = {};
};

/// What a member of the stand-in's objects throws for a call that fails.
class CallError : public std::runtime_error
{
  public:
    CallError(HRESULT error, const char* text, ErrorForm form = ErrorForm::Exception)
        : std::runtime_error(text), m_error(error), m_form(form)
    {
    }
    [[nodiscard]] HRESULT GetError() const noexcept { return m_error; }
    [[nodiscard]] ErrorForm GetForm() const noexcept { return m_form; }

  private:
    HRESULT m_error;
    ErrorForm m_form;
};

} // namespace ts::standin
