// The look that the whole program shares.
#pragma once

#include <QString>

class QApplication;

namespace Lorvane
{

// The application's style sheet: tool tips and scroll bars.
QString ApplicationStyleSheet();

// Dark palette and base style under the style sheets, so that no widget shows in a platform's colours.
void ApplyDarkLook(QApplication& application);

// Style of a check box or button that shows only an icon of ":/icons/resources/". A check box has the forms "-active"
// and "-disabled" of the icon beside it, a button "-disabled".
QString IconCheckBoxStyle(const QString& icon);
QString IconButtonStyle(const QString& icon);

} // namespace Lorvane
