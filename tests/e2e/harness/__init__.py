"""What the end-to-end flows share: the program on its private display, its accessible tree, and those who copy."""
