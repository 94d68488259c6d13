// The gate before the dialog: where the installer demands it, the process must hold the administrator's right.

#ifndef VISEX_PLUGINS_LANGUAGESELECTOR_AUTHORIZATIONGATE_H
#define VISEX_PLUGINS_LANGUAGESELECTOR_AUTHORIZATIONGATE_H

/// Whether to go on: true if the installer's resource 'CALL' 1000 does not demand the right, or the system grants it.
/// Nobody is ever asked and nothing is shown. What the check needed, Security.framework and an authorization
/// reference, stays until the process ends.
bool passAuthorizationGate();

#endif
