// What the build makes of the pictures and the style sheet: all there, told apart when small, and
// shown by the widgets that they are meant for.

#include "TestMain.h"
#include "Theme.h"

#include <QApplication>
#include <QDirIterator>
#include <QHeaderView>
#include <QIcon>
#include <QMap>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardItemModel>
#include <QTableView>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// The smallest size at which pictures must be told apart.
constexpr QSize small(20, 20);

constexpr const char *themeNames[] = {"Dark Night", "Bright Morning"};

// Pictures that the program asks for by name.
constexpr const char *namesOfCode[]
    = {"Brush",           "Copy",     "Document",  "Edit",           "Emptywatch",
       "Error",           "Exit",     "Export",    "Frownie",        "ExportCloud",
       "FactorySettings", "FullText", "FullWidth", "Help",           "Import",
       "ImportCloud",     "Info",     "Library",   "Lock",           "Paste",
       "Pause",           "PDF",      "Play2",     "Plus",           "Positions",
       "Refresh",         "Remove",   "Save",      "Search+Replace", "Music_File",
       "Settings",        "Stop",     "Stopwatch", "Tempo_Plus",     "Undo",
       "Unlock"};

// The same metaphor under several names.
const QMap<QString, QString> drawnAs{
    {u"Play2"_s, u"Play"_s},       {u"Tempo_Plus"_s, u"Plus"_s},
    {u"Event_Add"_s, u"Plus"_s},   {u"Tempo_Minus"_s, u"Minus"_s},
    {u"Sort_Up"_s, u"Arrow_Up"_s}, {u"Sort_Down"_s, u"Arrow_Down"_s}};

struct Rule
{
    QStringList selectors;
    QMap<QString, QString> declarations;
};

QList<Rule> rulesOf(QString sheet)
{
    sheet.remove(
        QRegularExpression(u"/\\*.*?\\*/"_s, QRegularExpression::DotMatchesEverythingOption));
    QList<Rule> rules;
    static const QRegularExpression form(u"([^{}]+)\\{([^{}]*)\\}"_s);
    for (auto found = form.globalMatch(sheet); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        Rule rule;
        for (const QString &selector : match.captured(1).split(u','))
            rule.selectors << selector.trimmed();
        for (const QString &declaration : match.captured(2).split(u';', Qt::SkipEmptyParts)) {
            const qsizetype colon = declaration.indexOf(u':');
            rule.declarations.insert(declaration.left(colon).trimmed(),
                                     declaration.mid(colon + 1).trimmed());
        }
        rules << rule;
    }
    return rules;
}

double luminance(const QColor &colour)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
           + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QString path(const QString &theme, const QString &picture)
{
    return u":/%1/%2.png"_s.arg(themeNamed(theme).directory, picture);
}

QImage inSize(const QString &file, QSize size)
{
    return QIcon(file).pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
}

// How much two pictures differ, 0 to 1; what can't be seen counts as the same.
double difference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 1;
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor first = a.pixelColor(x, y);
            const QColor second = b.pixelColor(x, y);
            sum += std::abs(first.redF() - second.redF())
                   + std::abs(first.greenF() - second.greenF())
                   + std::abs(first.blueF() - second.blueF());
        }
    }
    return sum / 3 / (a.width() * a.height());
}

// Share of the area that a picture covers, 0 to 1.
double coverage(const QImage &image)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    }
    return sum / (image.width() * image.height());
}

// How much of what two shapes cover is covered by one alone, 0 to 1.
double shapeDistance(const QImage &a, const QImage &b)
{
    double apart = 0;
    double together = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const double first = a.pixelColor(x, y).alphaF();
            const double second = b.pixelColor(x, y).alphaF();
            apart += std::abs(first - second);
            together += std::max(first, second);
        }
    }
    return apart / together;
}

QStringList picturesOf(const QString &theme)
{
    QStringList names;
    QDirIterator files(u":/"_s + themeNamed(theme).directory, {u"*.png"_s}, QDir::Files);
    while (files.hasNext())
        names << QFileInfo(files.next()).completeBaseName();
    names.sort();
    return names;
}

QStringList withoutStates(const QStringList &names)
{
    static const QRegularExpression state(u"_(Pressed|Disabled|Focus|Checked)$"_s);
    QStringList plain;
    for (const QString &name : names) {
        if (!state.match(name).hasMatch())
            plain << name;
    }
    return plain;
}

// The pictures of check boxes and radio buttons.
bool isMark(const QString &name)
{
    return name.startsWith(u"Check_"_s) || name.startsWith(u"Radio_"_s);
}

} // namespace

class TestPictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void namesOfTheCode_data() { themes(); }
    void namesOfTheCode();
    void namesInTheSources();
    void bothThemesHaveTheSame();
    void urlsResolve_data() { themes(); }
    void urlsResolve();
    void placeholders_data() { themes(); }
    void placeholders();
    void headerRule_data() { themes(); }
    void headerRule();
    void textIsReadable_data() { themes(); }
    void textIsReadable();
    void paletteIsReadable_data() { themes(); }
    void paletteIsReadable();
    void picturesAreDrawn_data() { themes(); }
    void picturesAreDrawn();
    void sameMetaphorSamePicture_data() { themes(); }
    void sameMetaphorSamePicture();
    void picturesAreToldApart_data() { themes(); }
    void picturesAreToldApart();
    void marksAreToldApart_data() { themes(); }
    void marksAreToldApart();
    void picturesStandOutFromTheirGround_data() { themes(); }
    void picturesStandOutFromTheirGround();
    void buttonsShowTheirPictures_data() { themes(); }
    void buttonsShowTheirPictures();
    void smallButtonsShowTheirPictures_data() { themes(); }
    void smallButtonsShowTheirPictures();
    void pictureBesideATextTurnsWithIt_data() { themes(); }
    void pictureBesideATextTurnsWithIt();
    void positionsDisplay_data() { themes(); }
    void positionsDisplay();
    void watchShowsItsNumber_data() { themes(); }
    void watchShowsItsNumber();
    void missingFilesStayRed_data() { themes(); }
    void missingFilesStayRed();
    void splashAndIcons();
    void flags();

private:
    static void themes();
    void use(const QString &theme);
    bool shows(QPushButton &button, const QString &picture) const;
    QString wrongState(const QString &name, const QString &picture) const;

    QString theme;
};

void TestPictures::themes()
{
    QTest::addColumn<QString>("theme");
    for (const char *name : themeNames)
        QTest::newRow(name) << QString::fromLatin1(name);
}

// The theme of the test's row is in force.
void TestPictures::init()
{
    theme = QString::fromLatin1(QTest::currentDataTag());
    const Theme &looks = themeNamed(theme);
    qApp->setPalette(looks.palette);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(looks), {}));
}

void TestPictures::namesOfTheCode()
{
    for (const char *name : namesOfCode)
        QVERIFY2(QFile::exists(path(theme, QString::fromLatin1(name))), name);
}

// Whatever the sources ask a theme for.
void TestPictures::namesInTheSources()
{
    static const QRegularExpression file(u"\"(?:%1)?/([A-Z][A-Za-z0-9_+]*)\\.png\""_s);
    static const QRegularExpression call(
        u"theme(?:Icon|Picture)\\((?:QStringLiteral\\()?u?\"([A-Za-z0-9_+]+)\""_s);
    QDirIterator files(QStringLiteral(SOURCE_DIRECTORY), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    int sources = 0;
    for (; files.hasNext(); ++sources) {
        QFile source(files.next());
        QVERIFY(source.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(source.readAll());
        for (const QRegularExpression &form : {file, call}) {
            for (auto found = form.globalMatch(text); found.hasNext();) {
                const QString picture = found.next().captured(1);
                for (const char *each : themeNames)
                    QVERIFY2(QFile::exists(path(QString::fromLatin1(each), picture)),
                             qPrintable(source.fileName() + u": "_s + picture));
            }
        }
    }
    QVERIFY(sources > 0);
}

void TestPictures::bothThemesHaveTheSame()
{
    const QStringList dark = picturesOf(QString::fromLatin1(themeNames[0]));
    QCOMPARE(dark, picturesOf(QString::fromLatin1(themeNames[1])));
    QVERIFY(dark.size() >= 100);
}

void TestPictures::urlsResolve()
{
    static const QRegularExpression url(u"url\\(([^)]*)\\)"_s);
    int count = 0;
    for (auto found = url.globalMatch(styleSheetText(themeNamed(theme))); found.hasNext();
         ++count) {
        const QString file = found.next().captured(1);
        QVERIFY2(QFile::exists(file), qPrintable(file));
        QVERIFY2(file.startsWith(u":/%1/"_s.arg(themeNamed(theme).directory)), qPrintable(file));
    }
    QVERIFY(count > 100);
}

void TestPictures::placeholders()
{
    const QString sheet = styleSheetText(themeNamed(theme));
    for (const QChar character : sheet)
        QVERIFY(character.unicode() < 128);
    QSet<QString> used;
    static const QRegularExpression placeholder(u"%(\\d*)"_s);
    for (auto found = placeholder.globalMatch(sheet); found.hasNext();)
        used << found.next().captured(1);
    QCOMPARE(QStringList(used.begin(), used.end()).size(), 9);
    for (int i = 1; i <= 9; ++i)
        QVERIFY2(used.contains(QString::number(i)), qPrintable(QString::number(i)));
}

void TestPictures::headerRule()
{
    static const QRegularExpression form(
        u"QHeaderView::section \\{ background-color: (#[0-9a-f]{6});"_s);
    const QColor ground(form.match(qApp->styleSheet()).captured(1));
    QVERIFY(ground.isValid());
    QVERIFY(contrast(ground, Qt::white) >= 4.5);
}

void TestPictures::textIsReadable()
{
    int pairs = 0;
    for (const Rule &rule : rulesOf(styleSheetText(themeNamed(theme)))) {
        const QColor text(rule.declarations.value(u"color"_s));
        const QColor ground(rule.declarations.value(u"background-color"_s));
        if (!text.isValid() || !ground.isValid()
            || rule.selectors.constFirst().contains(u":disabled"_s))
            continue;
        ++pairs;
        QVERIFY2(contrast(text, ground) >= 4.5, qPrintable(rule.selectors.join(u", "_s)));
        const QColor chosen(rule.declarations.value(u"selection-background-color"_s));
        const QColor chosenText(rule.declarations.value(u"selection-color"_s));
        QCOMPARE(chosen.isValid(), chosenText.isValid());
        QVERIFY(!chosen.isValid() || contrast(chosen, chosenText) >= 4.5);
    }
    QVERIFY(pairs > 15);
}

void TestPictures::paletteIsReadable()
{
    const QPalette palette = themeNamed(theme).palette;
    const QPair<QPalette::ColorRole, QPalette::ColorRole> pairs[]
        = {{QPalette::WindowText, QPalette::Window},
           {QPalette::Text, QPalette::Base},
           {QPalette::Text, QPalette::AlternateBase},
           {QPalette::ButtonText, QPalette::Button},
           {QPalette::HighlightedText, QPalette::Highlight}};
    for (const auto &[text, ground] : pairs)
        QVERIFY(contrast(palette.color(text), palette.color(ground)) >= 4.5);
}

void TestPictures::picturesAreDrawn()
{
    for (const QString &name : picturesOf(theme)) {
        const QImage image(path(theme, name));
        QCOMPARE(image.size(), QSize(160, 160));
        const double covered = coverage(inSize(path(theme, name), small));
        QVERIFY2(covered > 0.01 && covered < 0.8, qPrintable(name));
    }
}

void TestPictures::sameMetaphorSamePicture()
{
    for (auto pair = drawnAs.cbegin(); pair != drawnAs.cend(); ++pair)
        QCOMPARE(shapeDistance(inSize(path(theme, pair.key()), small),
                               inSize(path(theme, pair.value()), small)),
                 0.0);
}

void TestPictures::picturesAreToldApart()
{
    QMap<QString, QImage> shapes;
    for (const QString &name : withoutStates(picturesOf(theme))) {
        if (!drawnAs.contains(name) && !isMark(name))
            shapes.insert(name, inSize(path(theme, name), small));
    }
    for (auto first = shapes.cbegin(); first != shapes.cend(); ++first) {
        for (auto second = std::next(first); second != shapes.cend(); ++second) {
            // An arrow is a part of a widget: it never stands beside the button for playing.
            if (first.key().startsWith(u"Arrow_"_s) && second.key() == u"Play"_s)
                continue;
            QVERIFY2(shapeDistance(first.value(), second.value()) > 0.16,
                     qPrintable(first.key() + u" and "_s + second.key()));
        }
    }
}

// What is cut out of a solid ground shows in its colours alone.
void TestPictures::marksAreToldApart()
{
    const QColor window = themeNamed(theme).palette.color(QPalette::Window);
    QList<QImage> marks;
    for (const QString &name : withoutStates(picturesOf(theme))) {
        if (!isMark(name))
            continue;
        QImage mark(small, QImage::Format_ARGB32);
        mark.fill(window);
        QPainter(&mark).drawImage(0, 0, inSize(path(theme, name), small));
        for (const QImage &other : std::as_const(marks))
            QVERIFY2(difference(mark, other) > 0.03, qPrintable(name));
        marks << mark;
    }
    QCOMPARE(marks.size(), 5);
}

// Three to one is what a picture needs; a disabled one may be paler.
void TestPictures::picturesStandOutFromTheirGround()
{
    const auto ink = [this](const char *picture) {
        const QImage image(path(theme, QString::fromLatin1(picture)));
        return image.pixelColor(80, 80);
    };
    const Theme &looks = themeNamed(theme);
    const QColor text = looks.palette.color(QPalette::ButtonText);
    const QColor ground
        = theme == u"Dark Night"_s ? looks.palette.color(QPalette::Button) : QColor(220, 220, 220);
    QCOMPARE(ink("Stop"), text);
    QCOMPARE(ink("Stop_Pressed"), ground);
    QVERIFY(contrast(ink("Stop_Focus"), ground) >= 3);
    QVERIFY(contrast(ink("Slider"), looks.palette.color(QPalette::Base)) >= 3);
    QVERIFY(std::abs(ink("Stop_Disabled").alphaF() - 0.35F) < 0.02F);
    QCOMPARE(ink("Play_Checked"), looks.palette.color(QPalette::HighlightedText));
}

// Whether a grab of the button shows the picture in the room within its border. Hidden buttons
// only: no pointer is over them.
bool TestPictures::shows(QPushButton &button, const QString &picture) const
{
    constexpr int border = 2;
    const QImage grabbed = button.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    QImage expected(grabbed.size(), QImage::Format_ARGB32);
    expected.fill(grabbed.pixelColor(border + 1, border + 1));
    const QSize inner = grabbed.size() - QSize(2, 2);
    QPainter(&expected).drawImage(1, 1, inSize(path(theme, picture), inner));
    const QRect inside = grabbed.rect().adjusted(border, border, -border, -border);
    return difference(grabbed.copy(inside), expected.copy(inside)) < 0.02;
}

// The first state in which a button of that name doesn't show its picture; empty when all do.
QString TestPictures::wrongState(const QString &name, const QString &picture) const
{
    QPushButton button;
    button.setObjectName(name);
    button.setFixedSize(40, 40);
    if (!shows(button, picture))
        return u"plain"_s;
    button.setDown(true);
    if (!shows(button, picture + u"_Pressed"_s))
        return u"pressed"_s;
    button.setDown(false);
    if (QFile::exists(path(theme, picture + u"_Checked"_s))) {
        button.setCheckable(true);
        button.setChecked(true);
        if (!shows(button, picture + u"_Checked"_s))
            return u"checked"_s;
    }
    button.setEnabled(false);
    return shows(button, picture + u"_Disabled"_s) ? QString() : u"disabled"_s;
}

void TestPictures::buttonsShowTheirPictures()
{
    static const QRegularExpression plain(u"^#(\\w*[bB]utton\\w*)$"_s);
    static const QRegularExpression url(u"/([^/]+)\\.png"_s);
    int count = 0;
    for (const Rule &rule : rulesOf(qApp->styleSheet())) {
        const QString picture = url.match(rule.declarations.value(u"image"_s)).captured(1);
        for (const QString &selector : rule.selectors) {
            const QString name = plain.match(selector).captured(1);
            if (picture.isEmpty() || name.isEmpty() || name == u"buttonPositionsDisplay"_s)
                continue;
            ++count;
            const QString wrong = wrongState(name, picture);
            QVERIFY2(wrong.isEmpty(), qPrintable(name + u' ' + wrong));
        }
    }
    QVERIFY(count > 60);
}

void TestPictures::smallButtonsShowTheirPictures()
{
    for (const char *ending : {"Info", "Plus", "Minus"}) {
        QPushButton button;
        button.setObjectName(u"buttonCharSize"_s + QLatin1String(ending));
        button.setFixedSize(24, 24);
        QVERIFY2(shows(button, QString::fromLatin1(ending)), ending);
        button.setDown(true);
        QVERIFY2(shows(button, QLatin1String(ending) + u"_Pressed"_s), ending);
    }
    QPushButton withText(u"Hilfe"_s);
    withText.setObjectName(u"buttonCountDownInfo"_s);
    QPushButton sample(u"Hilfe"_s);
    QCOMPARE(withText.grab().toImage(), sample.grab().toImage());
}

// Pressed, ground and text are exchanged: a picture in the text's colour would be gone.
void TestPictures::pictureBesideATextTurnsWithIt()
{
    for (const char *name :
         {"buttonStepEditSave", "buttonRemoveCountDown", "buttonCountDownInfo"}) {
        QPushButton button;
        button.setObjectName(QLatin1String(name));
        button.setIcon(QIcon(path(theme, u"Save"_s)));
        button.setDown(true);
        const QImage image = button.grab().toImage();
        const QRect inside = image.rect().adjusted(3, 3, -3, -3);
        const QColor ground = image.pixelColor(inside.topLeft());
        int seen = 0;
        for (int x = inside.left(); x <= inside.right(); ++x)
            seen += contrast(image.pixelColor(x, inside.center().y()), ground) >= 3 ? 1 : 0;
        QVERIFY2(seen > 0, name);
    }
}

void TestPictures::positionsDisplay()
{
    QPushButton button;
    button.setObjectName(u"buttonPositionsDisplay"_s);
    button.setFixedSize(40, 40);
    button.setCheckable(true);
    QVERIFY(shows(button, u"FullText"_s));
    button.setChecked(true);
    QVERIFY(shows(button, u"FullWidth"_s));
    button.setDown(true);
    QVERIFY(shows(button, u"FullWidth_Pressed"_s));
    button.setDown(false);
    button.setEnabled(false);
    QVERIFY(shows(button, u"FullWidth_Disabled"_s));
    button.setChecked(false);
    QVERIFY(shows(button, u"FullText_Disabled"_s));
}

// In the ground's colour on the full watch.
void TestPictures::watchShowsItsNumber()
{
    QPushButton button(u"8"_s);
    button.setObjectName(u"buttonCountDownFull"_s);
    button.setFixedSize(40, 40);
    QVERIFY(!shows(button, u"Stopwatch"_s));
    const QImage image = button.grab().toImage();
    const QColor disc = image.pixelColor(10, 22);
    int digit = 0;
    for (int x = 13; x < 27; ++x)
        digit += contrast(image.pixelColor(x, 22), disc) >= 4.5 ? 1 : 0;
    QVERIFY(digit > 0);
}

void TestPictures::missingFilesStayRed()
{
    for (const char *name : {"tableViewMusicList", "tableWidgetMlPlaylist"}) {
        QStandardItemModel model(4, 2);
        for (int row = 1; row < 3; ++row) {
            for (int column = 0; column < 2; ++column)
                model.setData(model.index(row, column), QColor(Qt::red), Qt::BackgroundRole);
        }
        QTableView table;
        table.setObjectName(QLatin1String(name));
        table.setAlternatingRowColors(true);
        table.setModel(&model);
        table.resize(400, 300);
        const QImage image = table.viewport()->grab().toImage();
        for (int row = 0; row < 4; ++row) {
            const QPoint place = table.visualRect(model.index(row, 1)).center();
            QCOMPARE(image.pixelColor(place) == QColor(Qt::red), row == 1 || row == 2);
        }
    }
}

void TestPictures::splashAndIcons()
{
    QCOMPARE(QImage(u":/Splash.png"_s).size(), QSize(300, 300));
    QCOMPARE(QImage(u":/Tarvelo.png"_s).size(), QSize(256, 256));
    for (int size : {16, 24, 32, 48, 64, 128}) {
        const QImage icon(u":/Tarvelo_%1.png"_s.arg(size));
        QCOMPARE(icon.size(), QSize(size, size));
        QVERIFY(coverage(icon) > 0.8);
    }
}

void TestPictures::flags()
{
    const QImage german(QStringLiteral(FLAG_DIRECTORY "/de.png"));
    QCOMPARE(german.size(), QSize(96, 64));
    QCOMPARE(german.pixelColor(48, 10), QColor(Qt::black));
    QCOMPARE(german.pixelColor(48, 32), QColor(0xdd, 0, 0));
    const QImage american(QStringLiteral(FLAG_DIRECTORY "/us.png"));
    QCOMPARE(american.size(), QSize(96, 64));
    QCOMPARE(american.pixelColor(5, 3), QColor(0x3c, 0x3b, 0x6e));
    QCOMPARE(american.pixelColor(88, 4), QColor(0xb2, 0x22, 0x34));
}

TARVELO_TEST_MAIN(TestPictures, QApplication)
#include "tst_Pictures.moc"
