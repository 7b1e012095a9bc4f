#pragma once

#include "platform/WindowsHeaders.h"

#include <functional>
#include <memory>
#include <oaidl.h>
#include <ostream>

namespace ts::test
{

/// What a MeddlingOutlook does to one of the client's requests.
enum class Meddling
{
    Nothing,
    FailLookUp,       ///< of a member's dispatch id
    FailQuery,        ///< for another interface
    QueryAnswersNull, ///< with a result of success
    AnswerNothing,
    AnswerText,
    AnswerNumber,
    AnswerNull, ///< VT_NULL
    AnswerNullObject,
    AnswerUnknown ///< an object, but not one that can be automated
};

void PrintTo(Meddling meddling, std::ostream* out);

/// Stands between a client and an Outlook in this process, as the class that the client activates, and spoils
/// one request after the other. Dispatch ids change with every BeginRound, as if another version of Outlook
/// ran.
class MeddlingOutlook
{
  public:
    using CreateApplication = std::function<HRESULT(IDispatch** application)>;

    explicit MeddlingOutlook(CreateApplication createApplication);
    MeddlingOutlook(const MeddlingOutlook&) = delete;
    MeddlingOutlook& operator=(const MeddlingOutlook&) = delete;
    ~MeddlingOutlook();

    /// From now on the request with this number, counted from 1 among those that can be spoilt so, is.
    void BeginRound(Meddling meddling, long request);
    /// Whether there was such a request.
    [[nodiscard]] bool WasReached() const;
    [[nodiscard]] long GetLiveObjects() const;

    struct State;

  private:
    std::shared_ptr<State> m_state;
    DWORD m_registration = 0;
};

} // namespace ts::test
