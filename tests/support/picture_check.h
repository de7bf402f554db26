// Compares pictures with the reference pictures in tests/pictures/.
//
// A picture that differs leaves NAME.actual.png, NAME.expected.png and NAME.difference.png in the build tree's
// pictures/ folder, and the failure says where. To accept what is drawn now, look at it first, then run the test with
//
//     RECIPE_ACCEPT_PICTURES=1
//
// in the environment: the reference pictures are overwritten (and created where they are missing); commit them.
//
// Tolerance: fonts are not drawn alike to the last bit everywhere, so a pixel may be off by a few shades and a few
// pixels by more. A line that is missing or has moved by a pixel fails.
#ifndef PICTURE_CHECK_H
#define PICTURE_CHECK_H

#include <QImage>
#include <QString>

#include <gtest/gtest.h>

class PictureCheck
{
public:
    /// The project's reference pictures and the build tree.
    PictureCheck();

    /// Whether `seen` looks like the reference picture of that name (without ".png").
    testing::AssertionResult looksLike(const QImage& seen, const QString& name) const;

    QString referenceDir;
    QString outputDir;
    bool accepting; ///< RECIPE_ACCEPT_PICTURES
};

/// With the project's pictures.
testing::AssertionResult looksLike(const QImage& seen, const QString& name);

/// Sets up one fixed way of drawing fonts: antialiased, slightly hinted, no coloured fringes, DejaVu only. Call it
/// before the application is constructed, from the initialiser of a global variable.
bool pinFonts();

#endif
