// What a person asked for, as words became values.
#pragma once

#include <string>

namespace importer {

struct Options {
  std::string file;       ///< of the journal; empty: hledger's own choice
  std::string config;     ///< of the settings; empty: the usual place
  std::string container;  ///< empty: the usual place
  bool watch = false;
  bool force = false;
  std::string figure;  ///< of `explain`; empty: all
  std::string url;     ///< of `open`
};

}  // namespace importer
