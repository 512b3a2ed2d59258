// render-svg LIST: renders pictures from SVG to PNG. Each line of the list is one picture, its
// fields divided by tabs: target, source, width, height in pixels, and where the picture is to be
// coloured: ink, ground, opacity in percent. A source that is coloured draws with "currentColor",
// which becomes the ink, and cuts out with "white", which becomes the ground.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

enum Field { Target, Source, Width, Height, Ink, Ground, Opacity, FieldCount };
constexpr qsizetype plainFieldCount = Ink;

int fail(const QString &text)
{
    QTextStream(stderr) << u"render-svg: "_s << text << u"\n"_s;
    return 1;
}

QByteArray coloured(QByteArray svg, const QStringList &fields)
{
    svg.replace("currentColor", fields.at(Ink).toLatin1());
    return svg.replace("\"white\"", '"' + fields.at(Ground).toLatin1() + '"');
}

QImage rendered(QSvgRenderer &renderer, QSize size, double opacity)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter);
    // The picture as a whole: strokes that cross don't shine through each other.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(image.rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity)));
    painter.end();
    return image;
}

int render(const QStringList &fields)
{
    QFile source(fields.at(Source));
    if (!source.open(QIODevice::ReadOnly))
        return fail(u"%1 can't be read."_s.arg(source.fileName()));
    const bool isColoured = fields.size() == FieldCount;
    const QByteArray svg = source.readAll();
    QSvgRenderer renderer(isColoured ? coloured(svg, fields) : svg);
    const QSize size(fields.at(Width).toInt(), fields.at(Height).toInt());
    if (!renderer.isValid() || size.isEmpty())
        return fail(u"%1 is no picture that can be drawn."_s.arg(source.fileName()));
    const double opacity = isColoured ? fields.at(Opacity).toDouble() / 100 : 1.0;
    QDir().mkpath(QFileInfo(fields.at(Target)).path());
    if (!rendered(renderer, size, opacity).save(fields.at(Target), "PNG"))
        return fail(u"%1 can't be written."_s.arg(fields.at(Target)));
    return 0;
}

int renderAll(const QString &listName)
{
    QFile list(listName);
    if (!list.open(QIODevice::ReadOnly | QIODevice::Text))
        return fail(u"%1 can't be read."_s.arg(listName));
    QTextStream lines(&list);
    for (QString line; lines.readLineInto(&line);) {
        const QStringList fields = line.trimmed().split(u'\t');
        if (fields.size() != plainFieldCount && fields.size() != FieldCount)
            return fail(u"%1: what is \"%2\"?"_s.arg(listName, line));
        if (const int error = render(fields))
            return error;
    }
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    return arguments.size() == 2 ? renderAll(arguments.at(1)) : fail(u"LIST"_s);
}
