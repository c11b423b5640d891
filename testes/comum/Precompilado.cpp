// SPDX-License-Identifier: LGPL-2.1-or-later
// Holds nothing: the target that precompiles the headers of the tests needs a source.
