#include "PartPresets.h"

PartPresets::Checked PartPresets::check(const QString &text)
{
    Checked result;
    QStringList entries = text.split(u'\n');
    result.tooMany = entries.size() > mostEntries;
    if (result.tooMany)
        entries.resize(mostEntries);
    for (QString &entry : entries) {
        if (entry.size() <= mostLetters)
            continue;
        ++result.tooLong;
        // Half a letter is none.
        const bool splits = entry.at(mostLetters - 1).isHighSurrogate();
        entry.truncate(splits ? mostLetters - 1 : mostLetters);
    }
    result.text = entries.join(u'\n');
    return result;
}
