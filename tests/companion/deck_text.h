// A small deck as text, line by line, for tests that spoil it.
#pragma once

#include <string>
#include <vector>

namespace zorlan::companion::test {

/// A cantilever of 4 m from node 1 to node 2, divided at node 3 because of a uniform load, with a load of 1.5
/// down and a moment of 2 (clockwise) at its tip.
inline std::vector<std::string> CantileverLines() {
  return {
      std::string(85, ' ') + "%Ver.4",
      "    3    2    1    0    0    0    0    0    0%",
      "    1    0    1    0    1    0    1         0                   0",
      "    2    0    1    0    1    0    1         4                   0",
      "    3    0    1    0    1    0    1         2                   0",
      "    2    2    1    1    1",
      "    1  21000000       0.3",
      "    1      0.01      0.01         0     2E-4      2E-4      2E-4",
      "",
      "",
      "",
      "    1         0                   6                  -4",
      "              0                   6                   4",
      "    1    1    3    1    1    1    0               000000000000",
      "    2    3    2    1    1    0    1               000000000000",
      "         0        -1         ",
      "    7    3",
      "    1    1    1                                  0         0        -1",
      "        -1         0         0",
      "    1    1    1                                  0         0        -1",
      "         0         0        -1",
      "    1    2    1                                  0         0        -1",
      "         0         1         0",
      "    2    1         0                -1.5                   2",
      "",
      "         1",
  };
}

inline std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

}  // namespace zorlan::companion::test
