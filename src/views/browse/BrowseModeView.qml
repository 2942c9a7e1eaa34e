// SPDX-License-Identifier: GPL-3.0-or-later
import Quillon.Shared

EmptyNote {
    text: "Browsing is not there yet."
}
