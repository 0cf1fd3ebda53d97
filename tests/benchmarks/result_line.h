#pragma once

/// The line that all ways to a record are given, so that they are measured with the same bytes.
constexpr char c_resultLine[] = "RE:F:12.05,0,0,90,0,1234,0,extra,fields,1234\r\n";
