#pragma once

#include "tests/outlook_standin/Server.h"

namespace ts::standin
{

/// The stand-in under Outlook's class id, for as long as it lives, on the thread that made it. Throws
/// std::runtime_error when it cannot be registered.
class ClassRegistration
{
  public:
    explicit ClassRegistration(const std::shared_ptr<Server>& server);
    ClassRegistration(const ClassRegistration&) = delete;
    ClassRegistration& operator=(const ClassRegistration&) = delete;
    ~ClassRegistration() { Revoke(); }

    void Revoke() noexcept;

  private:
    unsigned long m_cookie = 0;
};

} // namespace ts::standin
