// One camera value as slider, text field and range labels.
#pragma once

#include "NumberField.h"

#include <QLabel>
#include <QSlider>
#include <QWidget>

#include <optional>

// Shows one value three times and leaves the mapping between position and value to its owner. The slider moved by
// keyboard, wheel or a click beside its handle reports sliderReleased just as at the end of a drag. GUI thread.
class ValueControl : public QWidget
{
    Q_OBJECT

public:
    struct ObjectNames
    {
        const char* slider;
        const char* field;
        const char* minimum;
        const char* maximum;
    };

    // Number of decimals of the text and the labels.
    ValueControl(const ObjectNames& names, int decimals, QWidget* parent = nullptr);

    void SetCaption(const QString& caption);
    // Lets the panel put further widgets below.
    void AddBelow(QWidget* widget);
    // At the right of the text field.
    void AddBeside(QWidget* widget);

    // Writes the labels and the text; the slider stays.
    void ShowRange(double minimum, double maximum);
    void ShowValue(double value);
    // Moves the slider without a signal of its own.
    void MoveSlider(int position);
    void SetSliderRange(int minimum, int maximum);
    // Positions for an arrow key and for a click beside the handle.
    void SetSliderSteps(int single, int page);

    // The number that the user has typed, within the numbers of the two labels; at or beyond one of them its text is
    // put in the field. Empty when there is nothing to apply: no range yet, no change, or no number, in which case the
    // field shows the former text again.
    std::optional<double> TakeTypedValue();

    // False until ShowRange was called.
    bool HasRange() const;

    QSlider& Slider() { return *m_slider; }
    NumberField& Field() { return *m_field; }

private:
    void OnSliderAction();

    int m_decimals;
    QLabel* m_caption;
    NumberField* m_field;
    QSlider* m_slider;
    QLabel* m_minimum;
    QLabel* m_maximum;
};
