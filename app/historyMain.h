#pragma once

namespace palomet {

/// Prints the past conversations that the backend has, whether or not a Palomet runs beside it, and gives the exit
/// code: 0 when they are printed, 1 with a line on standard error when no backend answers, or not with a list.
int runHistory(bool isJson, int argumentCount, char **arguments);

} // namespace palomet
