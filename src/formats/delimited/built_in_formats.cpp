#include "formats/delimited/built_in_formats.h"

namespace tovak::formats::delimited {

run::DelimitedFormat standardFormat() {
  return {.name = "Tovak Standard",
          .headerLine =
              "Y Coordinate , X Coordinate , Point Name , Point Number , Elevation , Geoid Height , "
              "Ellipsoid Height , Anything Else ,"};
}

void prepareMaptechSource(run::RunSettings& settings) {
  settings.sourceDelimited.fieldCodes = " 0~ 1~ 2~ 3~ 24~ 7~";
  settings.sourceDelimited.delimiter = ',';
}

void prepareWayPointsPlusSource(run::RunSettings& settings) {
  settings.sourceDelimited.fieldCodes = " 15~ 16~ 3~ 0~ 1~ 17~ 18~ 2~";
  settings.sourceDelimited.delimiter = ',';
}

void prepareWayPointsPlusTarget(run::RunSettings& settings) {
  settings.targetDelimited.fieldCodes = " 98~ 3~ 0~ 1~ 99~ 2~";
  settings.targetDelimited.delimiter = ',';
  settings.targetDelimited.latLongFormat = 1;
}

}  // namespace tovak::formats::delimited
