int room = 0;
