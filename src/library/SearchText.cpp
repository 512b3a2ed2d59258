#include "SearchText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr QChar quote = u'"';
// Between the columns: no word holds it.
constexpr char border = '\x01';

constexpr bool isBlank(char16_t letter)
{
    return letter == u' ' || (letter >= u'\t' && letter <= u'\r');
}

constexpr bool isDigit(char16_t letter)
{
    return letter >= u'0' && letter <= u'9';
}

constexpr bool isSmall(char16_t letter)
{
    return letter >= u'a' && letter <= u'z';
}

constexpr bool isCapital(char16_t letter)
{
    return letter >= u'A' && letter <= u'Z';
}

constexpr bool isComparedSign(char16_t letter)
{
    return std::u16string_view(u"()[]/.:").find(letter) != std::u16string_view::npos;
}

// The letter that is compared, 0 for one that is cut.
constexpr char comparedLetter(char16_t letter)
{
    if (isCapital(letter))
        return static_cast<char>(letter - u'A' + u'a');
    if (isSmall(letter) || isDigit(letter) || isBlank(letter) || isComparedSign(letter))
        return static_cast<char>(letter);
    return 0;
}

constexpr int tableSize = 128;

constexpr auto comparedLetters = [] {
    std::array<char, tableSize> table{};
    for (int letter = 0; letter < tableSize; ++letter)
        table[static_cast<std::size_t>(letter)] = comparedLetter(static_cast<char16_t>(letter));
    return table;
}();

constexpr bool isAscii(QChar letter)
{
    return letter.unicode() < tableSize;
}

void appendAscii(std::string &form, QStringView text)
{
    for (const QChar letter : text) {
        const char compared = isAscii(letter) ? comparedLetters[letter.unicode()] : '\0';
        if (compared != 0)
            form += compared;
    }
}

// Letters are taken apart one by one, so that those that are none of them need not be looked at.
void appendSearchForm(std::string &form, QStringView text)
{
    const auto end = text.cend();
    for (auto place = text.cbegin(); place != end;) {
        const auto other = std::find_if_not(place, end, isAscii);
        appendAscii(form, QStringView(place, other));
        place = std::find_if(other, end, isAscii);
        if (other != place)
            appendAscii(
                form,
                QStringView(other, place).toString().normalized(QString::NormalizationForm_KD));
    }
}

QChar foldedLetter(QChar letter)
{
    if (isAscii(letter))
        return isCapital(letter.unicode()) ? QChar(letter.unicode() - u'A' + u'a') : letter;
    return letter.toCaseFolded();
}

// No letter becomes longer or shorter.
void appendFolded(QString &folded, QStringView text)
{
    const qsizetype begin = folded.size();
    folded.resize(begin + text.size());
    QChar *out = folded.data() + begin;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar letter = text.at(index);
        const bool isPair = letter.isHighSurrogate() && index + 1 < text.size()
                            && text.at(index + 1).isLowSurrogate();
        if (!isPair) {
            *out++ = foldedLetter(letter);
            continue;
        }
        const char32_t both = QChar::toCaseFolded(QChar::surrogateToUcs4(letter, text.at(++index)));
        *out++ = QChar::highSurrogate(both);
        *out++ = QChar::lowSurrogate(both);
    }
}

std::u16string_view units(QStringView text)
{
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}

} // namespace

QString caseFolded(const QString &text)
{
    QString folded;
    appendFolded(folded, text);
    return folded;
}

std::string searchForm(const QString &text)
{
    std::string form;
    appendSearchForm(form, text);
    return form;
}

QStringList searchTokens(const QString &text)
{
    QStringList tokens{QString()};
    bool quoted = false;
    for (const QChar letter : text) {
        quoted = quoted != (letter == quote);
        if (letter == u' ' && !quoted)
            tokens.append(QString());
        else
            tokens.last() += letter;
    }
    if (quoted)
        tokens.last() += quote;
    return tokens;
}

void SearchTexts::add(const QString &text)
{
    appendSearchForm(words, text);
    words += border;
    appendFolded(texts, text);
    ends.push_back(texts.size());
}

QStringView SearchTexts::folded(int n) const
{
    const auto number = static_cast<std::size_t>(n);
    const qsizetype begin = number == 0 ? 0 : ends[number - 1];
    return QStringView(texts).mid(begin, ends[number] - begin);
}

bool SearchTexts::hasWord(const std::string &word) const
{
    return words.find(word) != std::string::npos;
}

// What is found must not reach from one text into the next.
bool SearchTexts::hasPhrase(const QString &phrase) const
{
    const std::u16string_view all = units(texts);
    const std::u16string_view wanted = units(phrase);
    for (auto place = all.find(wanted); place != std::u16string_view::npos;
         place = all.find(wanted, place + 1)) {
        const auto begin = static_cast<qsizetype>(place);
        const auto end = std::upper_bound(ends.cbegin(), ends.cend(), begin);
        if (phrase.isEmpty() || (end != ends.cend() && begin + phrase.size() <= *end))
            return true;
    }
    return false;
}

SearchQuery::SearchQuery(const QString &text)
{
    if (text.isEmpty())
        return;
    for (QString token : searchTokens(text)) {
        const bool isPhrase = token.startsWith(quote);
        token.remove(quote);
        if (isPhrase)
            phrases.append(caseFolded(token));
        else
            words.push_back(searchForm(token));
    }
}

bool SearchQuery::matches(const SearchTexts &song) const
{
    return std::all_of(words.cbegin(), words.cend(),
                       [&song](const std::string &word) { return song.hasWord(word); })
           && std::all_of(phrases.cbegin(), phrases.cend(),
                          [&song](const QString &phrase) { return song.hasPhrase(phrase); });
}
