#pragma once
// What the Wine benchmarks share: a clock, serving the queue, medians, the folders of files.
#include <windows.h>

#include <string>
#include <vector>

namespace tessel::bench {

double Now();  // milliseconds
// Serves the queue until it is empty; answers the longest single step in milliseconds. A step
// includes the messages other threads send, which PeekMessage serves before it returns.
double Drain();
// The same, leaving painting out of the longest step: a list's painting is the control's own work.
double DrainUnpainted();
double Median(std::vector<double> values);
// "<root>\files-<n>" with n empty files, made once (a marker file says it is complete).
std::wstring MakeFolder(const std::wstring& root, int files);

// COM, OLE and the controls; the folder named on the command line (else one in the temporary
// folder), made; settings of their own in `settingsFolder` under it.
std::wstring StartBench(int argc, wchar_t** argv, const std::wstring& settingsFolder);
// A shown top-level window for the views under test.
HWND MakeBenchFrame(int width, int height);

}  // namespace tessel::bench
