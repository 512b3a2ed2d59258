#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

int fail(const QString &text)
{
    QTextStream(stderr) << u"render-svg: "_s << text << u"\n"_s;
    return 1;
}

int render(const QString &source, const QString &target, QSize size)
{
    QSvgRenderer renderer(source);
    if (!renderer.isValid() || size.isEmpty())
        return fail(u"%1 is no picture that can be drawn."_s.arg(source));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter);
    painter.end();
    return image.save(target, "PNG") ? 0 : fail(u"%1 can't be written."_s.arg(target));
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "minimal");
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 5)
        return fail(u"IN.svg OUT.png WIDTH HEIGHT"_s);
    return render(arguments.at(1), arguments.at(2),
                  {arguments.at(3).toInt(), arguments.at(4).toInt()});
}
