#pragma once

#include "laboratory/test_choice.h"
#include "site/laboratory.h"

#include <QWidget>

#include <cstddef>
#include <vector>

class QComboBox;
class QLineEdit;

// What a test of one sample has beside its rows: heights of the specimens, the stress of the soil in place,
// whether it counts in the statistics of its element. Of compression and shear alone.
class TestHead : public QWidget
{
    Q_OBJECT

public:
    explicit TestHead(LabTest test, QWidget* parent = nullptr);

    void read(const LabSample& sample, const LabTriple& rings, int method);
    // Commits what is typed.
    void closeEditor();

Q_SIGNALS:
    void edited(const LabSample& sample);
    void told(const QString& text);

private:
    // A number of the compression test's record.
    struct Field {
        QLineEdit* edit;
        std::size_t number;
        double unit; // of the record in one of the screen
    };

    void addField(const char* name, std::size_t number, double unit);
    void takeField(const Field& field);
    void takeCount(int choice);

    const LabTest test_;
    std::vector<Field> fields_;
    QComboBox* counts_;
    LabSample sample_;
    int method_ = 0;
};
