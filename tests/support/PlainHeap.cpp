// Linked in place of GuardPageHeap.cpp: memory comes from the runtime's heap.

#include "tests/support/HeapKind.h"

bool ts::test::UsesGuardPageHeap() noexcept
{
    return false;
}
