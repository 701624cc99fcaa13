#pragma once

#include "drawing/drawing.h"
#include "site/elements.h"

#include <string>
#include <vector>

// Pictures of an element's samples. The id of a mark is the sample's number on the site, from 1.

// The values over depth with the mean; below them the histogram. Excluded ones are crosses.
Drawing scatterOfProperty(const SiteLaboratory& laboratory,
    const std::vector<ElementValue>& values,
    const Statistics& statistics,
    const std::wstring& title,
    const std::wstring& property);

// Grading curves of all samples of an element with their mean and the band that holds them. Smoothed curves
// go through the same points.
Drawing gradingsOfElement(
    const SiteLaboratory& laboratory, const SiteElement& element, const std::wstring& title, bool isSmoothed);

// Points of all shear tests of the method that counts, with the joint line.
Drawing shearOfElement(const SiteElement& element, const std::wstring& title);

// Void ratio over load of all compression tests at natural moisture.
Drawing compressionOfElement(
    const SiteLaboratory& laboratory, const SiteElement& element, const std::wstring& title);
