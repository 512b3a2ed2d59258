#include "SongAudioData.h"

#include <QAudioDecoder>

SongAudioData::SongAudioData() = default;

SongAudioData::~SongAudioData() = default;
