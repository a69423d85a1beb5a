// A host for fuzzers: message boxes are taken and dropped.
#pragma once

void BeQuiet();
