#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

// Each letter in the form in which letters are the same whatever their case; the length stays.
QString caseFolded(const QString &text);
// What of a text is compared with a word: without accents, signs and letters of other scripts, and
// without regard to the case.
std::string searchForm(const QString &text);
// Cut at the blanks outside of double quotes. A quote that isn't closed ends with the text.
QStringList searchTokens(const QString &text);

// The texts of one song, a column after the other, prepared once for many searches.
class SearchTexts
{
public:
    void add(const QString &text);
    // The case folded text that was added as number n, from 0.
    QStringView folded(int n) const;
    // Whether one of the texts holds it. The one is a searchForm(), the other is caseFolded().
    bool hasWord(const std::string &word) const;
    bool hasPhrase(const QString &phrase) const;

private:
    std::string words;
    QString texts;
    std::vector<qsizetype> ends; // of each text in texts
};

// What the search field asks for: every word and every phrase must be found in one of the texts,
// in any order. A phrase stands in double quotes and counts to the letter, but for the case.
class SearchQuery
{
public:
    // Finds every song.
    SearchQuery() = default;
    explicit SearchQuery(const QString &text);

    bool isEmpty() const { return words.empty() && phrases.isEmpty(); }
    bool matches(const SearchTexts &song) const;

private:
    std::vector<std::string> words;
    QStringList phrases;
};
