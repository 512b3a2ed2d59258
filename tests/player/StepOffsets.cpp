#include "StepOffsets.h"

#include <QFile>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize pictureSize(1600, 900);
constexpr QRectF field(110, 70, 1300, 740);
constexpr double topMs = 100;
constexpr double secondsStep = 10;
constexpr double msStep = 20;
// The line is the mean over so much of the song.
constexpr double meanSeconds = 4;

struct Ink
{
    int percent;
    QColor colour;
};

const QList<Ink> &inks()
{
    static const QList<Ink> all{{-40, QColor(0x1f, 0x4e, 0xa8)},
                                {-20, QColor(0x2c, 0xa0, 0xb8)},
                                {0, QColor(0x22, 0x22, 0x22)},
                                {20, QColor(0xe0, 0x8a, 0x1e)},
                                {40, QColor(0xc2, 0x2f, 0x2f)}};
    return all;
}

class Picture
{
public:
    Picture(const StepOffsets &shown, double boundMs);
    bool save(const QString &path) const { return image.save(path); }

private:
    QPointF at(double seconds, double ms) const;
    void drawGrid();
    void drawBound();
    void drawLabels();
    void drawTempo(const Ink &ink);
    void drawLegend();
    void text(QPointF middle, const QString &what);

    const StepOffsets &offsets;
    double bound;
    double lastSecond;
    QImage image;
    QPainter painter;
};

Picture::Picture(const StepOffsets &shown, double boundMs)
    : offsets(shown)
    , bound(boundMs)
    , lastSecond(secondsStep)
    , image(pictureSize, QImage::Format_RGB32)
{
    for (const StepOffset &offset : offsets)
        lastSecond = std::max(lastSecond, offset.songSeconds);
    image.fill(Qt::white);
    painter.begin(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setPixelSize(20);
    painter.setFont(font);
    drawGrid();
    drawBound();
    for (const Ink &ink : inks())
        drawTempo(ink);
    drawLabels();
    drawLegend();
    painter.end();
}

QPointF Picture::at(double seconds, double ms) const
{
    return {field.left() + field.width() * seconds / lastSecond,
            field.center().y() - field.height() / 2 * ms / topMs};
}

void Picture::text(QPointF middle, const QString &what)
{
    painter.setPen(Qt::black);
    painter.drawText(QRectF(middle - QPointF(500, 20), QSizeF(1000, 40)), Qt::AlignCenter, what);
}

void Picture::drawGrid()
{
    const QColor faint(0xdd, 0xdd, 0xdd);
    for (double ms = -topMs; ms <= topMs; ms += msStep) {
        painter.setPen(QPen(ms == 0 ? QColor(Qt::gray) : faint, ms == 0 ? 2 : 1));
        painter.drawLine(at(0, ms), at(lastSecond, ms));
        text(at(0, ms) - QPointF(35, 0), QString::number(ms));
    }
    for (double second = 0; second <= lastSecond; second += secondsStep) {
        painter.setPen(faint);
        painter.drawLine(at(second, -topMs), at(second, topMs));
        text(at(second, -topMs) + QPointF(0, 20), QString::number(second));
    }
}

void Picture::drawBound()
{
    painter.setPen(QPen(QColor(0xc2, 0x2f, 0x2f), 2, Qt::DashLine));
    painter.drawLine(at(0, bound), at(lastSecond, bound));
    painter.drawLine(at(0, -bound), at(lastSecond, -bound));
}

void Picture::drawLabels()
{
    text({field.center().x(), field.bottom() + 60}, u"song time in s"_qs);
    text(
        {field.center().x(), field.top() - 35},
        u"A part is told so much later than its first beat is heard (dots: beats, lines: mean of 4 s)"_qs);
    painter.save();
    painter.translate(35, field.center().y());
    painter.rotate(-90);
    text({0, 0}, u"offset in ms"_qs);
    painter.restore();
}

// The dots are the beats, the line their mean.
void Picture::drawTempo(const Ink &ink)
{
    QMap<int, QList<double>> spans;
    QColor faint = ink.colour;
    faint.setAlpha(70);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faint);
    for (const StepOffset &offset : offsets) {
        if (offset.percent != ink.percent)
            continue;
        painter.drawEllipse(at(offset.songSeconds, offset.ms), 3, 3);
        spans[static_cast<int>(offset.songSeconds / meanSeconds)].append(offset.ms);
    }
    QPolygonF line;
    for (auto span = spans.cbegin(); span != spans.cend(); ++span)
        line.append(at(std::min((span.key() + 0.5) * meanSeconds, lastSecond),
                       std::accumulate(span->cbegin(), span->cend(), 0.0)
                           / static_cast<double>(span->size())));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink.colour, 3));
    painter.drawPolyline(line);
}

void Picture::drawLegend()
{
    double y = field.top() + 40;
    for (const Ink &ink : inks()) {
        painter.setPen(QPen(ink.colour, 4));
        painter.drawLine(QPointF(field.right() + 25, y), QPointF(field.right() + 65, y));
        text({field.right() + 115, y},
             QString::asprintf(ink.percent ? "%+d %%" : "%d %%", ink.percent));
        y += 40;
    }
}

} // namespace

bool writeTable(const QString &path, const StepOffsets &offsets)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    QTextStream out(&file);
    out << "tempo_percent,how,song_s,offset_ms\n";
    for (const StepOffset &offset : offsets)
        out << offset.percent << ',' << offset.how << ','
            << QString::number(offset.songSeconds, 'f', 3) << ','
            << QString::number(offset.ms, 'f', 1) << '\n';
    out.flush();
    return out.status() == QTextStream::Ok;
}

bool writePicture(const QString &path, const StepOffsets &offsets, double boundMs)
{
    return Picture(offsets, boundMs).save(path);
}
