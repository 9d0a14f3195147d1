// The program's sounds.
#pragma once

namespace modSound {

enum Effect { kMouseOver = 1, kPressed = 2, kComplete = 3 };

// Plays a wave file of the program's folder and comes back at once: Over.wav and click.wav
// give way to a sound that plays, Complete.wav does not. Silent where the file or a sound
// device is missing and for any other kind.
void PlayEffect(int kind);

} // namespace modSound
