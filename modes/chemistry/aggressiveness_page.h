#pragma once

#include "calc/aggressiveness.h"
#include "common/page.h"

class ModeScreen;
class QComboBox;
class ReportPage;

// Composition and aggressiveness as the report shows them, and above it what is chosen for the site: cement,
// cover of the reinforcement, filtration of the ground, edition of the limits of chlorides. The choice is the
// project's and a step of undo.
class AggressivenessPage : public Page
{
public:
    explicit AggressivenessPage(ModeScreen& screen);

    void read(IDBProject* project) override;
    std::optional<Document> report() override;

private:
    QComboBox* addChoice(const char* name, const QString& label, const QString& tip);
    void fillChoices();
    void choose();

    ModeScreen& screen_;
    QComboBox* cement_;
    QComboBox* cover_;
    QComboBox* filtration_;
    QComboBox* edition_;
    ReportPage* page_;
};
