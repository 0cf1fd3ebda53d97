#pragma once

/// Makes known to QML what the window's documents use of C++, as the module "Workplace" 1.0. More than once changes
/// nothing.
void registerWindowTypes();
