// SPDX-License-Identifier: GPL-3.0-or-later
import Quillon.Shared

EmptyNote {
    text: "The queue is not there yet."
}
