#pragma once

class QWidget;

/// Shows the report of the session in the preview of the window that asks for it.
void ShowSessionReport(QWidget *window);
