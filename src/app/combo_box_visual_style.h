#pragma once

#include <QComboBox>

// The chooser of the visual style, which says what it is for when the mouse rests on it.
class ComboBoxVisualStyle : public QComboBox
{
public:
    using QComboBox::QComboBox;

protected:
    bool event(QEvent* event) override;
};
