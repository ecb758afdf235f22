#pragma once

class QWidget;

/// Says that a search cannot be started without a login, and asks whether to log in now. True when
/// the user wants to.
bool OfferLogin(QWidget *parent);

/// Shows the login window over the main window.
void ShowLogin();
