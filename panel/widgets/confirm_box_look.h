// Makes the message boxes that items open fit for fingers. The boxes are the items'; only their look is the panel's.
#ifndef CONFIRM_BOX_LOOK_H
#define CONFIRM_BOX_LOOK_H

#include <QString>

class QApplication;

/// The style sheet: large text, buttons that a glove hits without the one beside it.
QString confirmBoxStyleSheet(double dpi);

/// Gives the application's message boxes that look, also boxes that are made later. Whatever style sheet the
/// application has stays; called again, the new density takes the place of the old.
void adaptConfirmBoxes(QApplication& application, double dpi);

#endif
