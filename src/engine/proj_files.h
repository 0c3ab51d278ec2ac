/// The only files that PROJ can see: its database and the datum grid.
#pragma once

#include <string>

struct pj_ctx;

namespace tovak::engine {

/// Definitions, the current folder, a user's folder of downloaded grids and PROJ's own settings file may name or hold
/// files; none of them is opened, and nothing comes over the network.
struct ProjFiles {
  std::string grid;  ///< contents of the datum grid, which is read out of memory; empty while there is none
};

/// Whether there is a database, as far as its first bytes tell: the head of the SQLite format, version 3.
bool hasProjDatabase();

/// From now on `context` sees only these files. They must outlive the context.
void confine(pj_ctx* context, ProjFiles& files);

/// Lets `context` look into the database in the folders of PROJ_DATA (or PROJ_LIB), else where PROJ was installed. That
/// takes longer than a short run, and only definitions by code or in WKT need it.
void openProjDatabase(pj_ctx* context);

}  // namespace tovak::engine
