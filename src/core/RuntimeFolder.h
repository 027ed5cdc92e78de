#pragma once
// Qt wants a private runtime folder (XDG_RUNTIME_DIR) and warns on every
// start when the session has none, as under a bare X server or a service.
// Before the application object is made, this gives the process one of its
// own under the temporary folder when none is set.
void ensureRuntimeFolder();
