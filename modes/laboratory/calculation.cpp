#include "laboratory/calculation.h"

#include "site/elements.h"
#include "site/soil_in_place.h"
#include "site/soil_name.h"

#include <QProgressDialog>

namespace
{

constexpr int showAfter = 400; // ms
constexpr int samplesAStep = 200;

void calculateSample(const PointDepthKey& key,
    const LabSample& sample,
    const SampleResult& result,
    const SoilNaming& soil,
    Fill fill,
    SampleChange& change)
{
    LabSample made = sample;
    if (!fillDerivedCells(made, result, soil, fill))
        return;
    change.before.push_back({key, sample});
    change.after.push_back({key, std::move(made)});
}

} // namespace

bool calculateSamples(IDBProject& project,
    int language,
    Fill fill,
    const PointDepthKey* one,
    QWidget* parent,
    SampleChange& change)
{
    const LabSampleRegister& samples = project.getLabSamples();
    const std::optional<GrainScale> scale = grainScaleOf(project);
    const SoilInPlace place(project);
    SoilClassifier classifier(project, language);
    QProgressDialog progress(QStringLiteral("Расчет значений…"),
        QStringLiteral("Прервать"),
        0,
        static_cast<int>(samples.size()),
        parent);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(showAfter);
    int done = 0;
    for (const auto& [key, sample] : samples) {
        if (++done % samplesAStep == 0) {
            progress.setValue(done);
            if (progress.wasCanceled())
                return false;
        }
        if (one && (key.pointName != one->pointName || key.depth != one->depth))
            continue;
        const SampleResult result = sampleResult(
            sample, project.getLabTriple(), scale.value_or(GrainScale::Above200), place.kindAt(key));
        const SoilNaming soil =
            scale ? nameSoil(classifier.ground(), sample, result, *scale, language) : SoilNaming();
        calculateSample(key, sample, result, soil, fill, change);
    }
    return true;
}

LabSample withoutTest(LabSample sample, const TestChoice& choice)
{
    switch (choice.test) {
    case LabTest::Physical:
        for (PropertyCell& cell : sample.physical)
            cell.value.clear();
        break;
    case LabTest::Grading:
        sample.grading.clear();
        break;
    case LabTest::Compression:
        sample.compression.erase(static_cast<std::uint8_t>(choice.method));
        break;
    case LabTest::Shear:
        sample.shear.erase(static_cast<std::uint8_t>(choice.method));
        break;
    case LabTest::Swelling:
        sample.swelling.clear();
        break;
    case LabTest::Shrinkage:
        sample.shrinkage.clear();
        break;
    }
    return sample;
}
