#pragma once

#include <QDialog>

// The form of the three title blocks of the project's documents. It keeps nothing: what is typed into its
// open cells goes with it.
class StampDialog : public QDialog
{
public:
    // Captions in Ukrainian, or in Russian.
    explicit StampDialog(bool ukrainian, QWidget* parent = nullptr);

private:
    bool ukrainian_;
};
