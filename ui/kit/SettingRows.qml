// The setting rows of a block.
Rows {
}
