// Sketches of trees that stand for several kinds of a node.
#pragma once

#include <cstdlib>
#include <string>
#include <vector>

// "#3" in a sketch stands for the kinds 0 to 2: one sketch for each. A sketch without it is itself.
inline std::vector<std::string> SketchesOfKinds(const std::string& strSketch)
{
    const std::size_t nPlace = strSketch.find('#');
    if (nPlace == std::string::npos)
        return { strSketch };
    const std::size_t nEnd = strSketch.find(']', nPlace);
    std::vector<std::string> sketches;
    for (int nKind = 0; nKind < std::atoi(strSketch.c_str() + nPlace + 1); ++nKind)
    {
        std::string strOne = strSketch;
        sketches.push_back(strOne.replace(nPlace, nEnd - nPlace, std::to_string(nKind)));
    }
    return sketches;
}
