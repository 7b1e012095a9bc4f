#include "TsServiceUtilities.h"

int main()
{
    return CcvReminderOptionUtilities::GetPlaySoundWithTickler() ? 0 : 1;
}
