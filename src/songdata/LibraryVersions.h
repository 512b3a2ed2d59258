#pragma once

#include <QString>

// The versions of the libraries that work on the songs, such as "2.3.2": that of the stretcher as
// it runs, that of the tag library as it was built with.
QString stretcherVersion();
QString tagLibraryVersion();
