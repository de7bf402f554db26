// The comparison of pictures.
#include "picture_check.h"

#include <QDir>
#include <QPainter>
#include <QTemporaryDir>

namespace {

QImage sheetLike()
{
    QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (int y = 0; y < 300; y += 30)
        painter.drawLine(0, y, 399, y);
    return image;
}

} // namespace

class Pictures : public testing::Test
{
protected:
    Pictures()
    {
        check.referenceDir = folder.filePath(QStringLiteral("wanted"));
        check.outputDir = folder.filePath(QStringLiteral("out"));
        check.accepting = true;
        EXPECT_TRUE(check.looksLike(sheetLike(), QStringLiteral("sheet"))) << "accepting writes the picture";
        check.accepting = false;
    }

    QStringList left() const { return QDir(check.outputDir).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir folder;
    PictureCheck check;
};

TEST_F(Pictures, AreAlikeWhenTheyAreTheSame)
{
    EXPECT_TRUE(check.looksLike(sheetLike(), QStringLiteral("sheet")));
    EXPECT_EQ(left(), QStringList());
}

TEST_F(Pictures, AreAlikeWithAFewShadesMore)
{
    QImage image = sheetLike();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, image.pixelColor(x, y) == Qt::white ? QColor(245, 240, 250) : QColor(20, 5, 9));
    }
    EXPECT_TRUE(check.looksLike(image, QStringLiteral("sheet")));
}

TEST_F(Pictures, DifferWhenALineIsMissingAndLeaveThreePictures)
{
    QImage image = sheetLike();
    QPainter(&image).fillRect(0, 28, 400, 5, Qt::white);
    const testing::AssertionResult result = check.looksLike(image, QStringLiteral("sheet"));
    EXPECT_FALSE(result);
    const std::string message = result.message();
    EXPECT_NE(message.find("400 pixels"), std::string::npos) << message;
    EXPECT_NE(message.find(check.outputDir.toStdString()), std::string::npos) << message;
    EXPECT_NE(message.find("RECIPE_ACCEPT_PICTURES"), std::string::npos) << message;
    EXPECT_EQ(left(), QStringList({QStringLiteral("sheet.actual.png"), QStringLiteral("sheet.difference.png"),
                                   QStringLiteral("sheet.expected.png")}));
    const QImage difference(check.outputDir + QStringLiteral("/sheet.difference.png"));
    EXPECT_EQ(difference.pixelColor(7, 30), QColor(Qt::red));
    EXPECT_NE(difference.pixelColor(7, 60), QColor(Qt::red));
}

TEST_F(Pictures, DifferWhenALineHasMovedByAPixel)
{
    QImage image = sheetLike();
    QPainter painter(&image);
    painter.fillRect(0, 28, 400, 5, Qt::white);
    painter.drawLine(0, 31, 399, 31);
    painter.end();
    EXPECT_FALSE(check.looksLike(image, QStringLiteral("sheet")));
}

TEST_F(Pictures, DifferWhenTheSizeDoes)
{
    EXPECT_FALSE(check.looksLike(sheetLike().scaled(401, 300), QStringLiteral("sheet")));
}

TEST_F(Pictures, DifferFromAPictureThatIsNotThere)
{
    EXPECT_FALSE(check.looksLike(sheetLike(), QStringLiteral("other")));
    EXPECT_EQ(left(), QStringList(QStringLiteral("other.actual.png")));
}
