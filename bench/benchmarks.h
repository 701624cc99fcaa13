#pragma once

#include <string>

// One a topic: registers its benchmarks.
void addOpenSaveBenchmarks();
void addMapBenchmarks();
void addClassificationBenchmarks();
void addLaboratoryBenchmarks();
void addElementBenchmarks();
void addFieldBenchmarks();

// One operation of the topic opening and saving, in a process of its own (probe.h).
int measure(const std::string& operation, const std::string& peerName, const std::string& path);
