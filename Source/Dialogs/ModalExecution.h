// How modal dialogs run.
#pragma once

#include <functional>

class QDialog;

namespace Lorvane
{

// Runs the dialog until the user has answered; the result is that of QDialog::exec. GUI thread.
int ExecuteModal(QDialog& dialog);

// Answers in place of a user: called from the event loop of each dialog that ExecuteModal runs, as soon as it is shown.
// It works on the dialog's own widgets (clicks, texts) and leaves it closed; one that it leaves open is rejected. An
// empty function gives the dialogs back to the user.
using ModalAnswer = std::function<void(QDialog&)>;
void SetModalAnswer(ModalAnswer answer);

} // namespace Lorvane
