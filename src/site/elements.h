#pragma once

#include "calc/statistics.h"
#include "db/records/laboratory.h"
#include "db/records/strata_element.h"
#include "site/laboratory.h"
#include "site/soil_name.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

class IDBProject;
class SiteLayers;

// All laboratory samples of a project, computed, and the elements they fall to. Views into the project: look,
// use and let go before the next change.

struct SiteSample {
    const PointDepthKey* key = nullptr;
    const LabSample* sample = nullptr;
    Number depth; // m
    std::wstring_view element; // of the layer that the depth lies in; empty: none
    Number naturalStress; // of the soil in place, MPa: the layers above by the densities of their elements
    SampleResult result;
    SoilNaming soil;
};

// A value of a sample in the statistics of its element.
struct ElementValue {
    std::size_t sample = 0; // index in the samples of the site
    double value = 0;
    ExcludedBy excluded = ExcludedBy::Nobody;
};

struct ElementStatistics {
    std::vector<ElementValue> values;
    Statistics statistics;
};

struct ElementShear {
    int method = 0; // the one with most tests; 0: there is none
    std::vector<std::size_t> tests; // samples of the partial values, one a test
    PartialShear partial;
    struct Point {
        std::size_t sample = 0;
        ShearPoint point;
    };
    std::vector<Point> points;
    JointShear joint;
};

struct SiteElement {
    std::wstring_view name;
    const StrataElement* record = nullptr;
    std::vector<std::size_t> samples;
    std::map<int, ElementStatistics> properties; // measured ones by number
    Physical fromMeans; // 5 to 14 from the means of 0 to 4
    ElementStatistics modulus; // from 0.1 to 0.2 MPa, natural moisture, with beta, MPa
    ElementShear shear;
};

class SiteLaboratory
{
public:
    // How much is computed. Collapse: what the subsidence of points asks for, that is the results of the
    // samples with a test of collapse, without the names of their soils, and the means of 0 to 4 of the
    // elements; nothing at all where no sample has such a test and the project keeps no subsidence.
    enum class Extent { Everything, Collapse };

    // Names of soils in the language (0 Russian, 1 Ukrainian).
    SiteLaboratory(IDBProject& project, int language, Extent extent = Extent::Everything);

    // In the order of their registers.
    const std::vector<SiteSample>& samples() const { return samples_; }
    const std::vector<SiteElement>& elements() const { return elements_; }
    const SiteElement* element(std::wstring_view name) const;

    // Computes one sample and the statistics of its element anew, after cells of that sample have changed and
    // nothing else. Stresses in place stay as they were.
    void recompute(IDBProject& project, int language, std::size_t sample);

private:
    void computeSamples(IDBProject& project, int language, const SiteLayers& layers);
    void computeElements(IDBProject& project);
    void computeStatistics(SiteElement& element) const;
    void computeStresses(const SiteLayers& layers);

    Extent extent_;
    std::vector<SiteSample> samples_;
    std::vector<SiteElement> elements_;
};

// Whether the sample has a test of collapse, by one curve or by two.
bool hasCollapseTest(const LabSample& sample);

// Density of an element for stresses in place, g/cm3: the typed normative one, else the mean.
Number elementDensity(const SiteElement& element);

// The scale of the project's fractions; nothing for a project of neither.
std::optional<GrainScale> grainScaleOf(IDBProject& project);

// Statistics of one property (0 to 67) over samples, as computed or as typed.
ElementStatistics propertyStatistics(
    const std::vector<SiteSample>& samples, const std::vector<std::size_t>& taken, int property);
ElementStatistics modulusStatistics(
    const std::vector<SiteSample>& samples, const std::vector<std::size_t>& taken);
ElementShear shearStatistics(const std::vector<SiteSample>& samples, const std::vector<std::size_t>& taken);
