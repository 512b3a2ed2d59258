#include "Languages.h"
#include "MainWindow.h"
#include "MessageBoxes.h"
#include "Settings.h"
#include "Tarvelo.h"
#include "TestMain.h"

#include <QApplication>

class TestWithoutLanguages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startGoesOnInGerman();
};

void TestWithoutLanguages::startGoesOnInGerman()
{
    QVERIFY(!Languages::areComplete());
    Settings::setValue(Settings::Key::Version, QStringLiteral("8.0.0"));
    Settings::setValue(Settings::Key::Language, QStringLiteral("en_US"));
    QStringList boxes;
    setBoxRunner([&boxes](QMessageBox &box) {
        boxes.append(box.text());
        return QMessageBox::Ok;
    });
    Tarvelo tarvelo;
    MainWindow window(&tarvelo);
    window.decoupledStartActions();
    QCOMPARE(boxes, (QStringList{QStringLiteral("Konfigurationsproblem:<br>Das Verzeichnis<br>%1"
                                                "<br>mit Sprachinformationen fehlt oder ist "
                                                "unvollständig!")
                                     .arg(Languages::directory())}));
    QVERIFY(window.isVisible());
    setBoxRunner({});
}

TARVELO_TEST_MAIN(TestWithoutLanguages, QApplication)
#include "tst_WithoutLanguages.moc"
