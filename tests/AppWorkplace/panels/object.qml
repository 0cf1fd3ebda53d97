import QtQml 2.15

QtObject {}
