#include "fronts/cli/line/advice.h"

#include <algorithm>

#include "host/data/session/missing_database.h"
#include "host/schema/state/schema.h"

namespace kt7::cli {

namespace {

std::string adviceOn(const data::MissingDatabase& missing) {
  const std::string where = missing.file().empty() ? "" : " --db '" + missing.file() + "'";
  return "; run \"kt7hr init" + where + "\" to create it";
}

std::string adviceOnPart(const schema::SchemaState& state) {
  if (std::ranges::find(state.missing, "KT7TSchema") != state.missing.end()) {
    return "; where another program keeps it only kt7hr call and kt7hr rpc work on it, else "
           "restore it";
  }
  if (state.version == 0) {
    return "; where its making was broken off run kt7hr init again, where it holds rows restore it";
  }
  return "; restore it, or remove all KT7 tables and views and run kt7hr init";
}

std::string adviceOn(const schema::SchemaState& state) {
  using Kind = schema::SchemaState::Kind;
  const std::string own = std::to_string(schema::kSchemaVersion);
  switch (state.kind) {
    case Kind::Older:
      return "; run kt7hr init on this database to upgrade them to version " + own;
    case Kind::Newer:
      return ", this kt7hr knows them up to " + own + "; use a newer one";
    case Kind::UnfinishedCopy:
      return "; run the same kt7hr copy again, it goes on where it was";
    case Kind::Partial:
      return adviceOnPart(state);
    default:
      return "; kt7hr init makes one";
  }
}

}  // namespace

std::string textWithAdvice(const std::exception& error) {
  if (const auto* const missing = dynamic_cast<const data::MissingDatabase*>(&error)) {
    return missing->what() + adviceOn(*missing);
  }
  if (const auto* const unfit = dynamic_cast<const schema::UnfitDatabase*>(&error)) {
    return unfit->finding() + adviceOn(unfit->state());
  }
  return error.what();
}

}  // namespace kt7::cli
