#pragma once

class SongAudioData;

// Waits with the event loop running.
namespace Waiting {

void milliseconds(int ms);
// Until the song is decoded whole.
void forDecoder(const SongAudioData &audio);

} // namespace Waiting
