// How modal dialogs run.
#include "ModalExecution.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <utility>

namespace Lorvane
{
namespace
{

ModalAnswer& Answer()
{
    static ModalAnswer answer;
    return answer;
}

} // namespace

int ExecuteModal(QDialog& dialog)
{
    if (Answer())
    {
        QTimer::singleShot(0, &dialog,
                           [guard = QPointer<QDialog>(&dialog)]
                           {
                               const ModalAnswer answer = Answer();
                               if (answer)
                               {
                                   answer(*guard);
                               }
                               if (guard != nullptr && guard->isVisible())
                               {
                                   guard->reject();
                               }
                           });
    }
    return dialog.exec();
}

void SetModalAnswer(ModalAnswer answer)
{
    Answer() = std::move(answer);
}

} // namespace Lorvane
