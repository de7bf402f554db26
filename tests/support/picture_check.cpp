#include "picture_check.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

namespace {

// Qt 6 puts some glyphs a pixel beside where Qt 5 does; all else is the same.
const char* const REFERENCES = QT_VERSION < QT_VERSION_CHECK(6, 0, 0) ? "/tests/pictures" : "/tests/pictures/qt6";

const int SHADES = 24;                 // per channel
const int PIXELS_PER_OFF_PIXEL = 8000; // one pixel in so many may be off by more

struct Difference
{
    int pixels = 0;
    QImage image; // what differs in red over a faded picture
};

bool differs(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) > SHADES || std::abs(qGreen(a) - qGreen(b)) > SHADES
           || std::abs(qBlue(a) - qBlue(b)) > SHADES;
}

QRgb faded(QRgb color)
{
    const int gray = 192 + qGray(color) / 4;
    return qRgb(gray, gray, gray);
}

/// Of two pictures of the same size.
Difference compare(const QImage& seen, const QImage& wanted)
{
    Difference result;
    result.image = QImage(seen.size(), QImage::Format_RGB32);
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            const bool off = differs(seen.pixel(x, y), wanted.pixel(x, y));
            result.pixels += off ? 1 : 0;
            result.image.setPixel(x, y, off ? qRgb(255, 0, 0) : faded(wanted.pixel(x, y)));
        }
    }
    return result;
}

bool save(const QImage& image, const QString& path)
{
    return QDir().mkpath(QFileInfo(path).path()) && image.save(path);
}

testing::AssertionResult accept(const QImage& seen, const QString& path)
{
    if (!save(seen, path))
        return testing::AssertionFailure() << "cannot write " << path.toStdString();
    std::printf("accepted: %s\n", path.toLocal8Bit().constData());
    return testing::AssertionSuccess();
}

} // namespace

PictureCheck::PictureCheck()
    : referenceDir(QStringLiteral(SOURCE_DIR) + QLatin1String(REFERENCES)),
      outputDir(QStringLiteral(PICTURE_OUTPUT_DIR)),
      accepting(qEnvironmentVariableIntValue("RECIPE_ACCEPT_PICTURES") != 0)
{}

testing::AssertionResult PictureCheck::looksLike(const QImage& seen, const QString& name) const
{
    const QString reference = QStringLiteral("%1/%2.png").arg(referenceDir, name);
    if (accepting)
        return accept(seen, reference);

    const QString output = QStringLiteral("%1/%2").arg(outputDir, name);
    const QImage actual = seen.convertToFormat(QImage::Format_RGB32);
    const QImage wanted = QImage(reference).convertToFormat(QImage::Format_RGB32);
    Difference difference;
    if (wanted.size() == actual.size()) {
        difference = compare(actual, wanted);
        if (difference.pixels <= actual.width() * actual.height() / PIXELS_PER_OFF_PIXEL)
            return testing::AssertionSuccess();
        save(difference.image, output + QStringLiteral(".difference.png"));
    }
    save(actual, output + QStringLiteral(".actual.png"));
    testing::AssertionResult failure = testing::AssertionFailure();
    if (wanted.isNull()) {
        failure << "there is no picture " << reference.toStdString();
    } else {
        save(wanted, output + QStringLiteral(".expected.png"));
        failure << name.toStdString() << " differs in ";
        if (wanted.size() != actual.size())
            failure << "size";
        else
            failure << difference.pixels << " pixels";
    }
    return failure << "; see " << output.toStdString()
                   << ".*.png. To accept what is drawn now, run with RECIPE_ACCEPT_PICTURES=1.";
}

testing::AssertionResult looksLike(const QImage& seen, const QString& name)
{
    return PictureCheck().looksLike(seen, name);
}

bool pinFonts()
{
    return qputenv("FONTCONFIG_FILE", SOURCE_DIR "/tests/support/fonts.conf");
}
