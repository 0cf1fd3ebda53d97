import QtQuick 2.15
import NoSuchModule 1.0

Item {}
