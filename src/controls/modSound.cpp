// Tested by tests/windows/modsound_test.cpp.

#include "controls/modSound.h"

#include "base/Files.h"
#include "base/win.h"

#include <mmsystem.h>

namespace modSound {

void PlayEffect(int kind) {
    const char16_t* name = nullptr;
    DWORD flags = SND_FILENAME | SND_ASYNC | SND_NODEFAULT;
    switch (kind) {
    case kMouseOver:
        name = u"Over.wav";
        flags |= SND_NOSTOP;
        break;
    case kPressed:
        name = u"click.wav";
        flags |= SND_NOSTOP;
        break;
    case kComplete:
        name = u"Complete.wav";
        break;
    default:
        return;
    }
    if (waveOutGetNumDevs() == 0) return;
    PlaySoundW(Wide(files::Join(files::ProgramFolder(), name)), nullptr, flags);
}

} // namespace modSound
