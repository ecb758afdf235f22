#pragma once

class QWidget;

/// Says that a search cannot be started without a login, and asks whether to log in now. True when
/// the user wants to; false too when a login came through meanwhile, which settles the question.
bool OfferLogin(QWidget *parent);

/// Shows the login window over the main window.
void ShowLogin();
/// The same, and waits until the login is through or given up: what was wanted can go on then.
void ShowLoginModally();

/// A user is logged in: nobody has to be asked any more.
void SettleLoginOffers();
