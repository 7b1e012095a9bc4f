#pragma once

#include <stdexcept>

/// How the programs tell what went wrong.
namespace ts::hosts
{

/// The program was called wrongly; nothing has been done. Exit code 2.
class UsageError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// What was asked for could not be done. Exit code 1.
class OperationError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

} // namespace ts::hosts
