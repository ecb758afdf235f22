#pragma once

class QTableView;
class QWidget;

/// Which edge of the table something stands at.
enum class TableEdge { Above, Below };

/// Puts a widget at an edge of a table, into the layout that the table is in; the table makes room
/// where that is no column of widgets. Of a table in no layout it covers the edge. Call it when the
/// widget is wanted: not before are the window's layouts surely in place.
void PlaceBesideTable(QTableView *table, QWidget *widget, TableEdge edge);
