// placeholder until the first source arrives
