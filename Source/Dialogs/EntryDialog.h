// What the dialogs for entering numbers have in common: a header that drags them, and their look.
#pragma once

#include "FramelessDialog.h"

class EntryDialog : public FramelessDialog
{
    Q_OBJECT

public:
    explicit EntryDialog(QWidget* parent);

protected:
    // Only the header drags: the child "headerWidget".
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
};
