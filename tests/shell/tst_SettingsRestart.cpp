#include "BottomFrame.h"
#include "PositionsTable.h"
#include "SettingsPage.h"
#include "SongListTableModel.h"
#include "TestMain.h"
#include "WindowFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTableWidget>

#include <random>

using Settings::Key;

// What the settings screen shows after the next start of the program, whatever the store went
// through in between.
class TestSettingsRestart : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { prepareSample(); }
    void init() { prepareWindow(); }
    void cleanup() { dropWindow(); }

    void everythingComesBack();
    void whatDoesNotComeBack();
    void untouchedValuesStay();
    void olderVersion();
    void emptyLaterRun();
    void brokenValues_data();
    void brokenValues();
    void damagedStores();
    void damagedStoresStart_data();
    void damagedStoresStart();

private:
    SettingsPage *page() const { return find<SettingsPage>("tabWidgetSettings"); }
    void restart();
    void choose(const char *name, int index) const;
    void startWith(const QByteArray &ini);
    QByteArray storeAsIni() const;
};

void TestSettingsRestart::restart()
{
    QVERIFY(window->byeBye());
    dropWindow();
    answerQuestions();
    start();
}

void TestSettingsRestart::choose(const char *name, int index) const
{
    auto *box = find<QComboBox>(name);
    box->setCurrentIndex(index);
    Q_EMIT box->activated(index);
}

// What a store file holds, as the program would read it.
void TestSettingsRestart::startWith(const QByteArray &ini)
{
    const QTemporaryDir place;
    const QString path = place.filePath(u"Tarvelo.ini"_qs);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(ini);
    file.close();
    const QSettings damaged(path, QSettings::IniFormat);
    Settings::instance()->clear();
    for (const QString &name : damaged.allKeys())
        Settings::instance()->setValue(name, damaged.value(name));
    start();
}

QByteArray TestSettingsRestart::storeAsIni() const
{
    Settings::instance()->sync();
    QFile file(Settings::instance()->fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

namespace {

struct Number
{
    const char *name;
    int value;
};
// The upper limits first: each keeps the one below it.
constexpr Number numbers[] = {
    {"spinBoxRegisterPlay", 33}, {"spinBoxFontSize", 13},
    {"spinBoxFrameSize", 45},    {"spinBoxMaxFontSizePositions", 44},
    {"spinBoxTempo45", 160},     {"spinBoxTempo34", 150},
    {"spinBoxTempo23", 140},     {"spinBoxTempo12", 130},
    {"spinBoxPercent1", 5},      {"spinBoxPercent2", 4},
    {"spinBoxPercent3", -3},     {"spinBoxPercent4", -2},
    {"spinBoxPercent5", -1},
};

struct Text
{
    const char *name;
    const char16_t *text;
};
constexpr Text texts[] = {
    {"lineEditPosSeparators", u"(;|, )"},
    {"lineEditSpecialCharacters", u"→½ü\\\"%,="},
    {"lineEditUserId", u"4711"},
    {"lineEditUserName", u"Grete Übermut, \"die\"; [x]"},
    {"lineEditEmail", u"grete@example.org"},
};

constexpr const char *checks[]
    = {"checkBoxAutoUpdate", "checkBoxAutoEvent",        "checkBoxUseCache",
       "checkBoxLogging",    "checkBoxShowTempoButtons", "checkBoxShowMorePositionsInfo",
       "checkBoxCloudOn",    "checkBoxUsageStats"};

struct Choice
{
    const char *name;
    int index;
};
constexpr Choice choices[] = {
    {"comboBoxHighIntermediate", 1}, {"comboBoxTimeDisplay", 0}, {"comboBoxCountDownType", 2},
    {"comboBoxStyleSheet", 1},       {"comboBoxLanguage", 1},
};

} // namespace

void TestSettingsRestart::everythingComesBack()
{
    useLibrary();
    start();
    QHash<QString, bool> checked;
    for (const char *name : {"checkBoxCloudOn"})
        find<QCheckBox>(name)->click();
    for (const char *name : checks) {
        if (qstrcmp(name, "checkBoxCloudOn") != 0)
            find<QCheckBox>(name)->click();
        checked[QLatin1String(name)] = find<QCheckBox>(name)->isChecked();
    }
    for (const Number &number : numbers)
        find<QSpinBox>(number.name)->setValue(number.value);
    for (const Text &text : texts) {
        auto *field = find<QLineEdit>(text.name);
        field->selectAll();
        field->insert(QString::fromUtf16(text.text));
    }
    find<QPlainTextEdit>("plainTextEditUserPartPresets")->setPlainText(u"Auf\n\nÄ,;\"\\"_qs);
    find<QRadioButton>("radioButtonRoundingDay")->click();
    for (const Choice &choice : choices)
        choose(choice.name, choice.index);
    restart();
    for (const Number &number : numbers)
        QVERIFY2(find<QSpinBox>(number.name)->value() == number.value, number.name);
    for (const Text &text : texts)
        QCOMPARE(find<QLineEdit>(text.name)->text(), QString::fromUtf16(text.text));
    for (const char *name : checks)
        QVERIFY2(find<QCheckBox>(name)->isChecked() == checked[QLatin1String(name)], name);
    for (const Choice &choice : choices)
        QVERIFY2(find<QComboBox>(choice.name)->currentIndex() == choice.index, choice.name);
    QCOMPARE(find<QPlainTextEdit>("plainTextEditUserPartPresets")->toPlainText(),
             u"Auf\n\nÄ,;\"\\"_qs);
    QVERIFY(find<QRadioButton>("radioButtonRoundingDay")->isChecked());

    // And what they do.
    QCOMPARE(find<QFrame>("frameTop")->height(), 45);
    QVERIFY(qApp->styleSheet().contains(u"font-size: 13pt"_qs));
    QVERIFY(qApp->styleSheet().contains(u":/Bright_Morning/"_qs));
    QCOMPARE(find<QLabel>("labelScreen")->text(), u"Music"_qs);
    QCOMPARE(find<QAbstractButton>("buttonTempoPercent1")->text(), u"+5%"_qs);
    QCOMPARE(find<QWidget>("widgetTempoPresets")->isHidden(),
             !checked[u"checkBoxShowTempoButtons"_qs]);
    QCOMPARE(find<BottomFrame>("buttonFrame")->timeDisplayMode(), 0);
    QCOMPARE(find<QLabel>("labelLoremIpsum")->styleSheet(), u"font-size: 44pt;"_qs);
    QVERIFY(find<QLineEdit>("lineEditUserId")->isEnabled());
    QCOMPARE(Settings::value(Key::RegisterPlay).toInt(), 33);
    QCOMPARE(Settings::value(Key::CountDownType).toInt(), 2);
    QCOMPARE(Settings::value(Key::EventRounding).toInt(), 86400);
}

void TestSettingsRestart::whatDoesNotComeBack()
{
    useLibrary();
    start();
    find<QRadioButton>("radioButtonPosAlignTop")->click();
    find<QCheckBox>("checkBoxCloudOn")->click();
    QTest::keyClicks(find<QLineEdit>("lineEditPassword"), u"geheim"_qs);
    key(Qt::Key_B);
    restart();
    QVERIFY(find<QRadioButton>("radioButtonPosAlignCenter")->isChecked());
    QVERIFY(find<QLineEdit>("lineEditPassword")->text().isEmpty());
    QVERIFY(!find<QWidget>("buttonTempoDisplay")->isHidden());
    QVERIFY(!find<QWidget>("buttonTempoDisplayBPM")->isHidden());
    // The alignment itself is in force.
    select(u"Rocky Top"_qs);
    key(Qt::Key_Return);
    const auto *table = find<QTableWidget>("tableWidgetPositions");
    QVERIFY(table->item(0, StepsColumn)->textAlignment() & Qt::AlignTop);
}

void TestSettingsRestart::untouchedValuesStay()
{
    start();
    const auto values = [this] {
        QVariantList all;
        for (const Key key : SettingsPage::keys())
            all.append(page()->value(key));
        return all;
    };
    const QVariantList before = values();
    restart();
    QCOMPARE(values(), before);
    restart();
    QCOMPARE(values(), before);
}

void TestSettingsRestart::olderVersion()
{
    startWith("[General]\nversion=1.5.2\nfontSize=16\nframeHeight=40\nshowPartColumn=false\n"
              "eventRounding=0\nregisterPlay=20\nlanguage=de_DE\nstyleSheet=Bright Morning\n");
    QCOMPARE(find<QSpinBox>("spinBoxFontSize")->value(), 16);
    QCOMPARE(find<QSpinBox>("spinBoxRegisterPlay")->value(), 20);
    QVERIFY(find<QRadioButton>("radioButtonRoundingHour")->isChecked());
    QVERIFY(!find<QTableWidget>("tableWidgetPositions")->isColumnHidden(PartColumn));
    QCOMPARE(find<QComboBox>("comboBoxStyleSheet")->currentText(), u"Bright Morning"_qs);
    // Keys that it didn't know have a default, or are empty.
    QCOMPARE(find<QLineEdit>("lineEditSpecialCharacters")->text(), u"•¼½¾↺↻←↑→↓"_qs);
    QVERIFY(!find<QCheckBox>("checkBoxUseCache")->isChecked());
    restart();
    QCOMPARE(Settings::value(Key::EventRounding).toInt(), 3600);
    QCOMPARE(find<QSpinBox>("spinBoxFontSize")->value(), 16);
}

// Nothing but the version: no defaults of a first run, but what the widgets can show.
void TestSettingsRestart::emptyLaterRun()
{
    startWith("[General]\nversion=8.0.0\n");
    QCOMPARE(find<QSpinBox>("spinBoxFontSize")->value(), 8);
    QCOMPARE(find<QSpinBox>("spinBoxRegisterPlay")->value(), 2);
    QCOMPARE(find<QSpinBox>("spinBoxTempo12")->value(), 10);
    QCOMPARE(find<QSpinBox>("spinBoxTempo45")->value(), 13);
    QCOMPARE(find<QSpinBox>("spinBoxPercent5")->value(), 0);
    QVERIFY(!find<QCheckBox>("checkBoxAutoUpdate")->isChecked());
    QVERIFY(find<QCheckBox>("checkBoxShowMorePositionsInfo")->isChecked());
    QVERIFY(find<QRadioButton>("radioButtonRoundingNone")->isChecked());
    QCOMPARE(find<QComboBox>("comboBoxLanguage")->currentText(), u"English"_qs);
    QCOMPARE(find<QComboBox>("comboBoxStyleSheet")->currentText(), u"Dark Night"_qs);
    QVERIFY(boxes.isEmpty() || boxes.size() == 1); // the music directory may be told
}

void TestSettingsRestart::brokenValues_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("key");
    QTest::addColumn<QVariant>("value");
    const auto add = [](const QByteArray &line, Key broken, const QVariant &shown) {
        QTest::newRow(line.constData()) << line << static_cast<int>(broken) << shown;
    };
    add("fontSize=many", Key::FontSize, 8);
    add("fontSize=-3", Key::FontSize, 8);
    add("fontSize=400", Key::FontSize, 70);
    add("frameHeight=200", Key::FrameHeight, 80);
    add("frameHeight=@Invalid()", Key::FrameHeight, 20);
    add("registerPlay=", Key::RegisterPlay, 2);
    add("maxFontSizeLyrics=@ByteArray(x)", Key::MaxFontSizeLyrics, 10);
    add("tempoDefault3=77", Key::TempoDefault3, 50);
    add("eventRounding=13", Key::EventRounding, 3600);
    add("highIntermediate=Unheard of", Key::HighIntermediate, u"High Intermediate"_qs);
    add("styleSheet=Purple Noon", Key::StyleSheet, u"Dark Night"_qs);
    add("styleSheet=bright MORNING", Key::StyleSheet, u"Bright Morning"_qs);
    add("language=fr_FR", Key::Language, u"en"_qs);
    add("hideTempoButtons=perhaps", Key::HideTempoButtons, true);
    add("cloudOn=2", Key::CloudOn, true);
}

void TestSettingsRestart::brokenValues()
{
    QFETCH(QByteArray, line);
    QFETCH(int, key);
    startWith("[General]\nversion=8.0.0\n" + line + '\n');
    QTEST(page()->value(static_cast<Key>(key)), "value");
    restart();
    QTEST(page()->value(static_cast<Key>(key)), "value");
}

namespace {

QByteArray damage(QByteArray ini, std::mt19937 &random)
{
    const auto below = [&random](qsizetype end) {
        return static_cast<qsizetype>(random()
                                      % static_cast<std::size_t>(std::max<qsizetype>(end, 1)));
    };
    for (int count = 1 + static_cast<int>(random() % 12); count > 0; --count) {
        const qsizetype place = below(ini.size());
        switch (random() % 4) {
        case 0:
            ini[place] = static_cast<char>(random() % 256);
            break;
        case 1:
            ini.remove(place, 1 + below(20));
            break;
        case 2:
            ini.insert(place, ini.mid(below(ini.size()), 1 + below(40)));
            break;
        default:
            ini.truncate(std::max<qsizetype>(place, ini.size() / 2));
        }
    }
    return ini;
}

} // namespace

// The readers alone, many times.
void TestSettingsRestart::damagedStores()
{
    useLibrary();
    start();
    restart();
    const QByteArray whole = storeAsIni();
    QVERIFY(whole.size() > 1000);
    const QTemporaryDir place;
    std::mt19937 random(20241206);
    for (int round = 0; round < 200; ++round) {
        const QString path = place.filePath(u"%1.ini"_qs.arg(round));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(damage(whole, random));
        file.close();
        QSettings store(path, QSettings::IniFormat);
        // Wherever the damaged text points to, nothing is made there.
        store.setValue(u"cacheDir"_qs, place.path());
        const auto settings = WindowSettings::load(store, {1080, u"de_DE"_qs, place.path()});
        QVERIFY(settings.number(Key::FrameHeight) >= 20 && settings.number(Key::FrameHeight) <= 80);
        QVERIFY(settings.languageCode() == u"de"_qs || settings.languageCode() == u"en"_qs);
        settings.save(store, false, place.path());
        QFile::remove(path);
    }
}

void TestSettingsRestart::damagedStoresStart_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 5; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void TestSettingsRestart::damagedStoresStart()
{
    QFETCH(unsigned, seed);
    useLibrary();
    start();
    restart();
    const QByteArray whole = storeAsIni();
    QVERIFY(window->byeBye());
    dropWindow();
    answerQuestions();
    std::mt19937 random(seed);
    startWith(damage(whole, random));
    // It comes up whole, and every value is one that its widget can show.
    QVERIFY(window->isVisible());
    for (const QSpinBox *box : page()->findChildren<QSpinBox *>())
        QVERIFY(box->value() >= box->minimum() && box->value() <= box->maximum());
    for (const QComboBox *box : page()->findChildren<QComboBox *>())
        QVERIFY2(box->currentIndex() >= 0, qPrintable(box->objectName()));
    QVERIFY(find<QFrame>("frameTop")->height() >= 20 && find<QFrame>("frameTop")->height() <= 80);
    QVERIFY(window->byeBye());
    QCOMPARE(Settings::value(Key::Version).toString(), u"8.0.0"_qs);
}

TARVELO_TEST_MAIN(TestSettingsRestart, QApplication)
#include "tst_SettingsRestart.moc"
