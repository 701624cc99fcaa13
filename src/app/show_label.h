#pragma once

#include <QLabel>

// The hint in the status bar: dark blue, cut with dots where the room ends.
class ShowLabel : public QLabel
{
public:
    explicit ShowLabel(const QString& text, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
